#include "routing/CommandInterpreter.h"

#include <new>
#include <optional>

#include "kernel_api/Kernel.h"
#include "kernel_api/Reader.h"
#include "kernel_api/Splitter.h"
#include "runtime/Error.h"
#include "runtime/Form.h"
#include "runtime/LoadedForms.h"
#include "runtime/ScopeGuard.h"
#include "services/Localisation.h"
#include "services/MessageTexts.h"
#include "services/ProcessValues.h"

namespace routing {
namespace {

using runtime::Error;
using runtime::String;
using runtime::StringView;

String TextAt(kernel_api::TextPointer pointer) {
    return kernel_api::CurrentReader().TextAt(pointer);
}

struct Receiver {
    runtime::Form& mainForm;
    bool staysLoaded;
};

void TakeDesignName(const Receiver& /*receiver*/) {
    kernel_api::Kernel& kernel = kernel_api::CurrentKernel();
    CurrentDesignName() = runtime::Trim(TextAt(kernel.O_GetName(kernel.DB_DataBase())));
}

void UnloadUnlessStaying(const Receiver& receiver) {
    if (!receiver.staysLoaded) runtime::LoadedForms().UnloadAll();
}

void SwitchLanguage(const Receiver& receiver) {
    LanguagePath() = TextAt(kernel_api::CurrentKernel().E_GetString(kernel_api::kLanguageFolderKey));
    services::ChooseUiFont(receiver.mainForm.Handle(), receiver.mainForm.DeviceContext());
    services::LocaliseForm(receiver.mainForm);
}

void DoNothing(const Receiver& /*receiver*/) {}

struct Verb {
    StringView name;
    void (*carryOut)(const Receiver& receiver);
};

/// The verbs, in the order in which they are compared.
constexpr Verb kVerbs[] = {
    {u"SAVE", TakeDesignName},    {u"RD", DoNothing},      {u"OPEN", TakeDesignName}, {u"UP", DoNothing},
    {u"EX", UnloadUnlessStaying}, {u"LZ", SwitchLanguage}, {u"FMVHDLED", DoNothing},
};

/// The maximum number of open messages. A client may send failing commands while a message is open, for example from a
/// timer. An open message uses stack space until it is closed.
constexpr int kMaxOpenMessages = 8;

/// Returns the message for `failure`. Returns no value for the silent error, and for the error of a form whose own load
/// handler has unloaded the form. Other C++ exceptions become the same errors as for COM clients.
std::optional<String> MessageFor(const std::exception_ptr& failure) {
    try {
        std::rethrow_exception(failure);
    } catch (const runtime::FormUnloadedInLoad&) {
        return std::nullopt;
    } catch (const Error& error) {
        return error.Number() == runtime::kSilent ? std::nullopt : std::optional(error.Description());
    } catch (const std::bad_alloc&) {
        return runtime::StandardDescription(runtime::kOutOfMemory);
    } catch (...) {
        return runtime::StandardDescription(runtime::kInternalError);
    }
}

}  // namespace

std::exception_ptr CommandInterpreter::Execute(StringView command, runtime::Form& mainForm, bool staysLoaded) {
    if (command.empty()) return nullptr;
    runtime::FirstError failure;
    failure.Run([&] { Interpret(command, mainForm, staysLoaded); });
    return failure.Kept();
}

void CommandInterpreter::Interpret(StringView command, runtime::Form& mainForm, bool staysLoaded) {
    kernel_api::FieldParser& parser = Parser();
    parser.SetText(command);
    // Request the first field twice even if the first comparison succeeds, because parsers rely on this order of calls.
    const bool isForThisModule = parser.Field(1) == services::kOwnModuleName;
    const bool isForAll = parser.Field(1) == u"All";
    if (!isForThisModule && !isForAll) return;
    const StringView name = parser.Field(2);
    for (const Verb& verb : kVerbs) {
        if (name == verb.name) return verb.carryOut({mainForm, staysLoaded});
    }
}

kernel_api::FieldParser& CommandInterpreter::Parser() {
    if (!parser_) parser_ = kernel_api::CurrentSplitter().MakeFieldParser();
    return *parser_;
}

void CommandInterpreter::ReportFailure(const std::exception_ptr& failure) {
    runtime::FirstError firstError;
    firstError.Run([&] { ShowFailure(failure); });
    firstError.Run([] { runtime::LoadedForms().UnloadAll(); });
    firstError.Rethrow();
}

void CommandInterpreter::ShowFailure(const std::exception_ptr& failure) {
    const std::optional<String> message = MessageFor(failure);
    if (!message || openMessages_ >= kMaxOpenMessages) return;
    const runtime::ScopeGuard closed([this] {
        // AbandonOpenMessages may have reset the count.
        if (openMessages_ > 0) --openMessages_;
    });
    ++openMessages_;
    services::ShowMessage(*message, 0);
}

}  // namespace routing
