// Interprets the commands that other modules send to this component. A command is a list of comma fields: the
// addressee, the verb and the verb's arguments. The component carries out a command if the addressee is this module or
// all modules. It ignores other commands and unknown verbs.
//
// If a command fails, the component shows the error's description and then unloads all its forms. This severe reaction
// is intended. Two errors are not shown: the silent error, and the error of a form whose own load handler has unloaded
// the form.
#pragma once

#include <exception>
#include <memory>

#include "kernel_api/Splitter.h"
#include "runtime/Text.h"
#include "services/ProcessValues.h"

namespace runtime {
class Form;
}

namespace routing {

/// The name of the open design at the last SAVE or OPEN, without leading and trailing blanks.
inline runtime::String& CurrentDesignName() {
    return services::Values().currentDesignName;
}
/// The language folder at the last LZ, as the kernel returned it; empty before the first LZ.
inline runtime::String& LanguagePath() {
    return services::Values().languagePath;
}

/// The main form owns one interpreter. Use it only on the home thread.
class CommandInterpreter {
 public:
    /// Carries out `command`. Does nothing if it is empty. LZ localises `mainForm`. If `staysLoaded` is true, EX
    /// unloads no form. If the command fails, returns the error. The caller must pass it to ReportFailure. Returns null
    /// on success.
    std::exception_ptr Execute(runtime::StringView command, runtime::Form& mainForm, bool staysLoaded);

    /// Shows a message about the failure of a command, unless the error is one that is not shown or too many messages
    /// are open. Then unloads all forms, even if the message fails. If the message fails, throws its error afterwards.
    /// Otherwise throws the error of the unload if there is one.
    void ReportFailure(const std::exception_ptr& failure);

    /// Resets the count of open messages. Call it when the thread of the messages has ended or is no longer the home
    /// thread.
    void AbandonOpenMessages() { openMessages_ = 0; }

 private:
    void Interpret(runtime::StringView command, runtime::Form& mainForm, bool staysLoaded);
    kernel_api::FieldParser& Parser();
    void ShowFailure(const std::exception_ptr& failure);

    std::unique_ptr<kernel_api::FieldParser> parser_;  ///< created for the first command
    int openMessages_ = 0;
};

}  // namespace routing
