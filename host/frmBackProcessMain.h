// The main form is a hidden window with a status line and an outgoing event. The event passes commands for other
// modules to all service objects. The form's load publishes this module's state to the suite. The form's unload sends
// "SHUTDOWN" to the clients. Use it only on the home thread. Any thread may call Abandon.
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
    /// The parameters are a module's name and a command for that module, both by reference.
    using NotifyClassEvent = runtime::Event<String&, String&>;

    frmBackProcessMain();

    NotifyClassEvent& NotifyClass() { return notifyClass_; }

    /// Centres `form` on the screen; see services::SetForm.
    static void SetForm(runtime::Form& form);
    /// Abandons the window, the open messages and the claim to be the first instance. Runs no handler. Call it when the
    /// form's thread has ended or is no longer the home thread.
    void Abandon();
    /// Shows `text` in the status line at once.
    void EditMsgLine(StringView text);

    /// Carries out a command from another module. Loads the form only if the command requires it.
    void AP_ExeCmd(StringView command);

    // These functions send commands for other modules. Each function raises NotifyClass once before it returns. Errors
    // of clients reach the caller.

    /// Sends `command` to `module`. Sends both texts as they are. Clients may change them.
    void AP_SendCmd(String& module, String& command);
    /// Sends `command` with this module's name.
    void AP_SendCmdAll(String& command);
    /// Asks `module` to start a program. Adds no quotes to `commandLine`, so a comma in it starts another field.
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

    /// EX unloads no form if this is true. The component never sets it.
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
