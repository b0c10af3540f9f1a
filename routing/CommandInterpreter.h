// The interpreter of commands that come to this component from other modules. A command is a list of comma fields: the
// addressee, the verb, and what belongs to the verb. It is carried out when it is addressed to this module or to all;
// every other command, and every verb that is not this component's business, is ignored.
//
// An error is answered severely, and on purpose: its description is shown, and then all forms of the component are
// unloaded. Two errors are not shown: the silent one, and that of a form whose load shut itself down.
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

/// Name of the design that the suite had open at the last SAVE or OPEN, without leading and trailing blanks.
inline runtime::String& CurrentDesignName() {
    return services::Values().currentDesignName;
}
/// The language folder since the last LZ, exactly as the kernel had it; empty before.
inline runtime::String& LanguagePath() {
    return services::Values().languagePath;
}

/// The main form has one.
class CommandInterpreter {
 public:
    /// Carries `command` out; nothing for an empty one. LZ localises `mainForm`; EX leaves the forms alone when it
    /// `staysLoaded`. Throws only what fails while an error is being reported, after the forms are unloaded: the
    /// message's error, or else that of the unload.
    void Execute(runtime::StringView command, runtime::Form& mainForm, bool staysLoaded);

    /// The thread that shows the open messages has ended, or is home no more: they do not count any more.
    void AbandonOpenMessages() { openMessages_ = 0; }

 private:
    void Interpret(runtime::StringView command, runtime::Form& mainForm, bool staysLoaded);
    kernel_api::FieldParser& Parser();
    void Report(const std::exception_ptr& failure);
    void ShowFailure(const std::exception_ptr& failure);

    std::unique_ptr<kernel_api::FieldParser> parser_;  ///< made when the first command comes
    int openMessages_ = 0;
};

}  // namespace routing
