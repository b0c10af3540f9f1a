#include "tools/ClientView.h"

#include <ostream>
#include <utility>

#include "host/WindowsComposition.h"
#include "kernel_api/Kernel.h"
#include "kernel_api/Suite.h"
#include "runtime/Error.h"
#include "runtime/win32/Handle.h"
#include "runtime/win32/ModulePath.h"
#include "runtime/win32/TrustedLibrary.h"
#include "tools/Display.h"

namespace tools {

namespace {

using kernel_api::win32::FindKernel;
using kernel_api::win32::FoundKernel;
using kernel_api::win32::KernelLibrary;
using kernel_api::win32::KernelPlace;
using runtime::StringView;
using runtime::win32::FolderOf;
using runtime::win32::Wide;

/// Replaces a kernel that clients cannot find. Every call fails with error 53, as it does in a client.
class NoKernel : public kernel_api::Kernel {
 public:
    explicit NoKernel(runtime::Error reason) : reason_(std::move(reason)) {}

    void E_SetString(StringView, String&) override { throw reason_; }
    kernel_api::TextPointer E_GetString(StringView) override { throw reason_; }
    std::int32_t DB_DataBase() override { throw reason_; }
    kernel_api::TextPointer O_GetName(std::int32_t) override { throw reason_; }

 private:
    runtime::Error reason_;
};

std::unique_ptr<kernel_api::Kernel> MakeKernelOrNone(const String& componentFolder) try {
    return MakeKernelOfClients(componentFolder);
} catch (const runtime::Error& error) {
    return std::make_unique<NoKernel>(error);
}

/// The library stays loaded until the process ends, because the ports get the component's folder from the library.
HMODULE LoadForGood(const String& library) {
    return IsFullPath(library) ? runtime::win32::LoadTrusted(library).Release() : nullptr;
}

}  // namespace

bool IsSamePath(const String& one, const String& other) {
    return CompareStringOrdinal(Wide(one), -1, Wide(other), -1, TRUE) == CSTR_EQUAL;
}

String ToolFolder() {
    return FolderOf(runtime::win32::ModulePath(nullptr));
}

ComponentInForce FindComponent() {
    for (const Scope scope : {Scope::kUser, Scope::kMachine}) {
        if (std::optional<String> library = RegisteredLibrary(scope)) return {*std::move(library), scope};
    }
    return {ToolFolder() + u"\\K4TBackProcess.dll", std::nullopt};
}

std::string_view ScopeInWords(const ComponentInForce& component) {
    if (!component.scope) return "not registered; the copy beside this tool";
    return *component.scope == Scope::kUser ? "registered for the user" : "registered for the machine";
}

std::optional<FoundKernel> KernelOfClients(const String& componentFolder) {
    // The client's folder is unknown. Pass the component's folder twice. The second argument then adds no place to the
    // search.
    return FindKernel(componentFolder, componentFolder);
}

String KernelBesideToolAlone(const String& componentFolder) {
    if (KernelOfClients(componentFolder)) return {};
    const auto found = FindKernel(componentFolder, ToolFolder());
    return found ? found->path : String();
}

std::unique_ptr<KernelLibrary> MakeKernelOfClients(const String& componentFolder) {
    const std::optional<FoundKernel> found = KernelOfClients(componentFolder);
    if (found && found->place != KernelPlace::kAskedFor) return std::make_unique<KernelLibrary>(FolderOf(found->path));
    const String besideTool = KernelBesideToolAlone(componentFolder);
    if (besideTool.empty()) return std::make_unique<KernelLibrary>(componentFolder);
    throw runtime::ErrorAbout(runtime::kFileNotFound,
                              u"QmxKrn2K.dll was found only in this tool's folder, where programs in other folders "
                              u"do not find it; put the suite's QmxKrn2K.dll into " +
                                  componentFolder);
}

ComponentInForce ComposeAsClient(std::string_view verb, std::ostream& err) {
    ComponentInForce component = FindComponent();
    HMODULE module = GetModuleHandleW(nullptr);
    if (component.scope) {
        if (const HMODULE loaded = LoadForGood(component.library)) {
            module = loaded;
        } else {
            err << "backproc " << verb << ": cannot load the registered component " << Quoted(component.library)
                << " (run 'backproc doctor' to see why); using this tool's folder instead\n";
            component = {ToolFolder() + u"\\K4TBackProcess.dll", std::nullopt};
        }
    }
    host::EnsureComposed(module);
    static const std::unique_ptr<kernel_api::Kernel> kernel = MakeKernelOrNone(FolderOf(component.library));
    kernel_api::CurrentSuite().kernel = kernel.get();
    return component;
}

void PrintWhichComponent(std::string_view verb, const ComponentInForce& component, std::ostream& err) {
    const String folder = FolderOf(component.library);
    if (IsSamePath(folder, ToolFolder())) return;
    const auto kernel = KernelOfClients(folder);
    err << "backproc " << verb << ": using the component " << Display(component.library) << " ("
        << ScopeInWords(component) << ") and the kernel " << (kernel ? Display(kernel->path) : "(none)") << '\n';
}

}  // namespace tools
