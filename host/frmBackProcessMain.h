// The main form: the component's one window, which nobody sees. It is what the process has a handle, a status line and
// an event for: commands for other modules go out through it, to every service object at once. While it is loaded the
// suite knows this module; the clients hear "SHUTDOWN" when it goes.
#pragma once

#include <memory>

#include "routing/CommandInterpreter.h"
#include "runtime/Event.h"
#include "runtime/Form.h"
#include "runtime/ProcessPort.h"

namespace host {

using runtime::String;
using runtime::StringView;

class frmBackProcessMain : public runtime::Form {
 public:
    /// A command for the suite's module of the given name. Both strings are by reference.
    using NotifyClassEvent = runtime::Event<String&, String&>;

    frmBackProcessMain();

    NotifyClassEvent& NotifyClass() { return notifyClass_; }

    /// Moves `form` to the middle of the screen; a form that is larger moves down and right.
    static void SetForm(runtime::Form& form);
    /// Its thread has ended, or is home no more: gives up window, messages and claim without running a handler.
    void Abandon();
    /// Puts `text` into the status line and shows it at once.
    void EditMsgLine(StringView text);

    /// Carries out a command from another module. Does not load the form, unless the command does.
    void AP_ExeCmd(StringView command);

    // Commands for other modules. Each raises NotifyClass once, before it returns; a client's error passes.

    /// `command` for `module`, both as they are.
    void AP_SendCmd(String& module, String& command);
    /// `command` in this module's name.
    void AP_SendCmdAll(String& command);
    /// Asks `module` to start a program; `commandLine` goes unquoted, so its commas make further fields.
    void AP_Shell(String& module, std::int16_t mode, StringView commandLine);

 protected:
    void OnLoad() override;
    void OnQueryUnload(bool& cancel, runtime::UnloadReason reason) override;
    void OnUnload(bool& cancel) override;
    void OnActivate() override;
    void OnShownByOthers() override;
    void OnResize() override;
    void OnKeyDown(std::int16_t& keyCode, std::int16_t shift) override;
    void OnKeyUp(std::int16_t& keyCode, std::int16_t shift) override;
    void OnKeyPress(char16_t& character) override;

    /// Never set by anything so far; EX looks at it.
    bool staysLoaded_ = false;

 private:
    void Announce();

    NotifyClassEvent notifyClass_;
    routing::CommandInterpreter interpreter_;
    runtime::Control& msgLine_;
    std::unique_ptr<runtime::InstanceClaim> firstInstance_;
    runtime::NativeHandle handle_ = 0;
};

}  // namespace host
