// Interprets the commands that other modules send to this component. A command is a list of comma fields: the
// addressee, the verb and the verb's arguments. A command is carried out if its addressee is this module or all
// modules. Other commands and unknown verbs are ignored.
//
// If a command fails, the error's description is shown and then all forms of the component are unloaded. This severe
// reaction is intended. Two errors are not shown: the silent error, and the error of a form that its own load handler
// has unloaded.
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

/// Name of the design that was open at the last SAVE or OPEN, without leading and trailing blanks.
inline runtime::String& CurrentDesignName() {
    return services::Values().currentDesignName;
}
/// The language folder at the last LZ, exactly as the kernel returned it; empty before the first LZ.
inline runtime::String& LanguagePath() {
    return services::Values().languagePath;
}

/// The main form owns one. Home thread only.
class CommandInterpreter {
 public:
    /// Carries out `command`; an empty command does nothing. LZ localises `mainForm`. EX unloads no form if
    /// `staysLoaded`. A failed command is reported here, and its error returned; null after success. Throws only an
    /// error of that report: the message's error, else the unload's error. The unload has been tried by then.
    std::exception_ptr Execute(runtime::StringView command, runtime::Form& mainForm, bool staysLoaded);

    /// Resets the count of open messages. To be called when their thread has ended or is no longer the home thread.
    void AbandonOpenMessages() { openMessages_ = 0; }

 private:
    void Interpret(runtime::StringView command, runtime::Form& mainForm, bool staysLoaded);
    kernel_api::FieldParser& Parser();
    void Report(const std::exception_ptr& failure);
    void ShowFailure(const std::exception_ptr& failure);

    std::unique_ptr<kernel_api::FieldParser> parser_;  ///< made for the first command
    int openMessages_ = 0;
};

}  // namespace routing
