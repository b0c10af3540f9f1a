// Creates instances, calls their members, and prints results and events.
#include "tools/ModuleHost.h"

#include <utility>

#include "host/com/Bstr.h"
#include "runtime/win32/ModulePath.h"
#include "tools/ClientView.h"
#include "tools/ComFailure.h"
#include "tools/Display.h"
#include "tools/EventSink.h"
#include "tools/MessagePump.h"

namespace tools {

namespace {

using host::com::Bstr;
using host::com::ComPtr;

std::string Bracketed(StringView text) {
    std::string bracketed(1, '[');
    return bracketed.append(Display(text)).append(1, ']');
}

/// Throws ComFailure for every failure. If the class is not registered, the error has advice in place of the system's
/// text.
void ThrowIfNotMade(HRESULT result) {
    if (result != CO_E_CLASSSTRING && result != REGDB_E_CLASSNOTREG) return ThrowIfFailed(result);
    throw ComFailure(result, "the component is not registered; 'backproc doctor' tells what to do");
}

void Connect(_clsQmxBackProcess& instance, EventSink::NotifyServer notifyServer) {
    ComPtr<IConnectionPointContainer> container;
    ThrowIfFailed(instance.QueryInterface(__uuidof(IConnectionPointContainer), container.PutVoid()));
    ComPtr<IConnectionPoint> point;
    ThrowIfFailed(container->FindConnectionPoint(__uuidof(__clsQmxBackProcess), point.Put()));
    const auto sink = ComPtr<EventSink>::Attach(new EventSink(std::move(notifyServer)));
    // Do not disconnect the sink, because the last release of the instance still raises an event.
    DWORD cookie = 0;
    ThrowIfFailed(point->Advise(sink.Get(), &cookie));
}

ComPtr<IK4TDiagnostics> DiagnosticsOf(_clsQmxBackProcess& instance) {
    ComPtr<IK4TDiagnostics> diagnostics;
    if (FAILED(instance.QueryInterface(__uuidof(IK4TDiagnostics), diagnostics.PutVoid())))
        throw HostScriptError("this component offers no diagnostics; register the one of this package");
    return diagnostics;
}

}  // namespace

// `strings_` uses the kernel that the instances use in this process.
ModuleHost::ModuleHost(Printer print)
    : print_(std::move(print)),
      strings_(std::make_unique<kernel_api::win32::KernelLibrary>(runtime::win32::FolderOf(FindComponent().library))) {}

bool ModuleHost::Run(const HostCommand& command) {
    switch (command.verb) {
        case HostVerb::kNothing:
            return true;
        case HostVerb::kCreate:
            return Create();
        case HostVerb::kLoad:
            return Load(command.number);
        case HostVerb::kNotify:
            return NotifyMe(command.number, command.text);
        case HostVerb::kSever:
            return SeverPath(command.number, command.text);
        case HostVerb::kRelease:
            return Release(command.number);
        case HostVerb::kSet:
            strings_.Set(command.key, command.text.value_or(String()));
            return true;
        case HostVerb::kGet:
            PrintString(command.key);
            return true;
        case HostVerb::kStrings:
            PrintStrings();
            return true;
        case HostVerb::kState:
            PrintState();
            return true;
        case HostVerb::kSend:
            return AP_SendCmd(command.number, command.key, command.text.value_or(String()));
        case HostVerb::kSendAll:
            return AP_SendCmdAll(command.number, command.text.value_or(String()));
        case HostVerb::kShell:
            return AP_Shell(command.number, command.key, command.mode, command.text.value_or(String()));
        case HostVerb::kPump:
            PumpFor(std::chrono::milliseconds(command.number));
            return true;
    }
    return false;
}

bool ModuleHost::ReleaseAll() {
    bool released = true;
    while (!instances_.empty()) released = Release(instances_.begin()->first) && released;
    return released;
}

bool ModuleHost::Create() {
    const std::int32_t number = ++lastNumber_;
    return Report(number, [&] {
        instances_.emplace(number, NewInstance(number));
        return std::string("created");
    });
}

bool ModuleHost::Load(std::int32_t number) {
    _clsQmxBackProcess& instance = Find(number);
    return Report(number, [&] {
        short mode = 0;
        VARIANT_BOOL result = VARIANT_FALSE;
        ThrowIfFailed(instance.Load(&mode, &result));
        return std::string(result == VARIANT_FALSE ? "Load False" : "Load True");
    });
}

bool ModuleHost::NotifyMe(std::int32_t number, const std::optional<String>& command) {
    _clsQmxBackProcess& instance = Find(number);
    return Report(number, [&] {
        Bstr name;
        Bstr text(command.value_or(String()));
        ThrowIfFailed(instance.NotifyMe(name.Address(), text.Address()));
        return std::string("NotifyMe");
    });
}

bool ModuleHost::SeverPath(std::int32_t number, const std::optional<String>& value) {
    _clsQmxBackProcess& instance = Find(number);
    return Report(number, [&] {
        if (value) {
            ThrowIfFailed(instance.put_SeverPath(Bstr(*value).Get()));
            return "SeverPath " + Bracketed(*value);
        }
        Bstr path;
        ThrowIfFailed(instance.get_SeverPath(path.Address()));
        return "SeverPath " + Bracketed(path.Text());
    });
}

bool ModuleHost::AP_SendCmd(std::int32_t number, StringView module, StringView command) {
    const auto diagnostics = DiagnosticsOf(Find(number));
    return Report(number, [&] {
        ThrowIfFailed(diagnostics->AP_SendCmd(Bstr(module).Get(), Bstr(command).Get()));
        return std::string("AP_SendCmd");
    });
}

bool ModuleHost::AP_SendCmdAll(std::int32_t number, StringView command) {
    const auto diagnostics = DiagnosticsOf(Find(number));
    return Report(number, [&] {
        ThrowIfFailed(diagnostics->AP_SendCmdAll(Bstr(command).Get()));
        return std::string("AP_SendCmdAll");
    });
}

bool ModuleHost::AP_Shell(std::int32_t number, StringView module, std::int16_t mode, StringView commandLine) {
    const auto diagnostics = DiagnosticsOf(Find(number));
    return Report(number, [&] {
        ThrowIfFailed(diagnostics->AP_Shell(Bstr(module).Get(), mode, Bstr(commandLine).Get()));
        return std::string("AP_Shell");
    });
}

bool ModuleHost::Release(std::int32_t number) {
    Find(number);
    Instance instance = std::move(instances_.extract(number).mapped());
    const bool succeeded = Report(number, [&] {
        instance.Reset();
        ThrowIfErrorObject();
        return std::string();
    });
    print_(std::to_string(number) + " released");
    return succeeded;
}

void ModuleHost::PrintString(StringView key) {
    const std::optional<String> value = strings_.Get(key);
    print_(Display(key) + "=" + (value ? Bracketed(*value) : std::string()));
}

void ModuleHost::PrintStrings() {
    for (const auto& [key, value] : strings_.All()) print_(Display(key) + "=" + Bracketed(value));
}

void ModuleHost::PrintState() {
    if (instances_.empty()) throw HostScriptError("'state' requires an instance; create one with 'create'");
    const auto diagnostics = DiagnosticsOf(*instances_.begin()->second.Get());
    Bstr name;
    Bstr folder;
    Bstr caption;
    ThrowIfFailed(diagnostics->get_CurrentDesignName(name.Address()));
    ThrowIfFailed(diagnostics->get_LanguagePath(folder.Address()));
    ThrowIfFailed(diagnostics->get_Caption(caption.Address()));
    print_("CurrentDesignName=" + Bracketed(name.Text()));
    print_("LanguagePath=" + Bracketed(folder.Text()));
    print_("Caption=" + (caption.Get() ? Bracketed(caption.Text()) : std::string()));
}

ModuleHost::Instance ModuleHost::NewInstance(std::int32_t number) {
    CLSID identifier;
    ThrowIfNotMade(CLSIDFromProgID(L"K4TBackProcess.clsQmxBackProcess", &identifier));
    Instance instance;
    ThrowIfNotMade(
        CoCreateInstance(identifier, nullptr, CLSCTX_INPROC_SERVER, __uuidof(_clsQmxBackProcess), instance.PutVoid()));
    Connect(*instance.Get(), [this, number](StringView Aname, StringView sCommand) {
        print_(std::to_string(number) + " NotifyServer " + Bracketed(Aname) + " " + Bracketed(sCommand));
    });
    return instance;
}

_clsQmxBackProcess& ModuleHost::Find(std::int32_t number) const {
    const auto instance = instances_.find(number);
    if (instance == instances_.end())
        throw HostScriptError("there is no instance " + std::to_string(number) + "; create one with 'create'");
    return *instance->second.Get();
}

/// Runs `call`. Prints the result if it is not empty. After a failure, prints the failure and returns false.
template <typename Call>
bool ModuleHost::Report(std::int32_t number, Call&& call) {
    try {
        ClearErrorObject();
        const std::string outcome = call();
        if (!outcome.empty()) print_(std::to_string(number) + " " + outcome);
        return true;
    } catch (const ComFailure& failure) {
        print_(std::to_string(number) + " error " + failure.what());
        return false;
    }
}

}  // namespace tools
