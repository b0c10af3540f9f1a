#include "routing/CommandInterpreter.h"

#include <memory>
#include <optional>

#include "kernel_api/Kernel.h"
#include "kernel_api/Reader.h"
#include "kernel_api/Splitter.h"
#include "routing/ModuleList.h"
#include "runtime/Error.h"
#include "runtime/Form.h"
#include "services/Localisation.h"
#include "services/MessageTexts.h"

namespace routing {
namespace {

using runtime::Error;
using runtime::String;
using runtime::StringView;

/// Made when the first command comes.
std::unique_ptr<kernel_api::FieldParser> fieldParser;

kernel_api::FieldParser& Parser() {
    if (!fieldParser) fieldParser = kernel_api::CurrentSplitter().MakeFieldParser();
    return *fieldParser;
}

String TextAt(kernel_api::TextPointer pointer) {
    return kernel_api::CurrentReader().TextAt(pointer);
}

void TakeDesignName(const CommandReceiver& /*receiver*/) {
    kernel_api::Kernel& kernel = kernel_api::CurrentKernel();
    CurrentDesignName = runtime::Trim(TextAt(kernel.O_GetName(kernel.DB_DataBase())));
}

void Leave(const CommandReceiver& receiver) {
    if (!receiver.staysLoaded) receiver.unloadAllForms();
}

void SwitchLanguage(const CommandReceiver& receiver) {
    LanguagePath = TextAt(kernel_api::CurrentKernel().E_GetString(u"LANGUAGEPATH"));
    services::ChooseUiFont(receiver.mainForm.Handle(), receiver.mainForm.DeviceContext());
    services::LocaliseForm(receiver.mainForm);
}

void DoNothing(const CommandReceiver& /*receiver*/) {}

struct Verb {
    StringView name;
    void (*carryOut)(const CommandReceiver& receiver);
};

/// In the order in which a command's verb is compared with them.
constexpr Verb kVerbs[] = {
    {u"SAVE", TakeDesignName}, {u"RD", DoNothing},       {u"OPEN", TakeDesignName}, {u"UP", DoNothing}, {u"EX", Leave},
    {u"LZ", SwitchLanguage},   {u"FMVHDLED", DoNothing},
};

void Interpret(StringView command, const CommandReceiver& receiver) {
    kernel_api::FieldParser& parser = Parser();
    parser.SetText(command);
    // The parser is asked anew for each comparison, whatever the first one gave.
    const bool isForThisModule = parser.Field(1) == kOwnModuleName;
    const bool isForAll = parser.Field(1) == u"All";
    if (!isForThisModule && !isForAll) return;
    const String name = parser.Field(2);
    for (const Verb& verb : kVerbs) {
        if (name == verb.name) return verb.carryOut(receiver);
    }
}

/// None when all went well. What is no error of the runtime is one of memory.
std::optional<Error> ErrorOfInterpreting(StringView command, const CommandReceiver& receiver) {
    try {
        Interpret(command, receiver);
    } catch (const Error& error) {
        return error;
    } catch (const std::exception&) {
        return Error(runtime::kOutOfMemory);
    }
    return std::nullopt;
}

void Answer(const Error& error, const CommandReceiver& receiver) {
    runtime::FirstError firstError;
    firstError.Run([&] {
        if (error.Number() != runtime::kSilent) services::ShowMessage(error.Description(), 0);
    });
    firstError.Run(receiver.unloadAllForms);
    firstError.Rethrow();
}

}  // namespace

void ExecuteCommand(StringView command, const CommandReceiver& receiver) {
    if (command.empty()) return;
    if (const std::optional<Error> error = ErrorOfInterpreting(command, receiver)) Answer(*error, receiver);
}

void ResetCommandInterpreter() {
    fieldParser.reset();
    CurrentDesignName.clear();
    LanguagePath.clear();
}

}  // namespace routing
