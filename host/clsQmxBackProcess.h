// This class is the service object. A module creates an instance to use the component. Each new instance reads and
// publishes the suite's settings. The instance passes its client's commands to the main form, and the main form's
// commands to its client. The COM layer calls the class, but the class itself does not use COM.
//
// Use it only on the home thread. Terminate an instance before its destruction.
#pragma once

#include <memory>

#include "host/ServiceObject.h"

namespace host {

class frmBackProcessMain;

class clsQmxBackProcess final : public ServiceObject {
 public:
    /// Links the instance to the main form and publishes the settings. Creates the main form if necessary, but does not
    /// load it. If the kernel, the settings or the reader fail, removes the link and throws the error.
    explicit clsQmxBackProcess(NotifyServerEvent notifyServer);
    ~clsQmxBackProcess() override;

    /// Unloads the shared main form while the client can still receive SHUTDOWN. Then removes the link to the form. A
    /// second call does nothing. If steps fail, runs the remaining steps and then throws the first error.
    void Terminate() override;

    /// Loads the main form hidden. Returns false if the form was visible or the instance was terminated, otherwise
    /// true. Never throws. Does not use `iMode`.
    bool Load(std::int16_t iMode) override;
    /// Carries out a command for this component. Does nothing for an empty command. Does not use `Aname`. Error 91
    /// after Terminate.
    void NotifyMe(StringView Aname, StringView sCommand) override;
    /// Clears the stored value and returns an empty text.
    String SeverPath() override;
    void SetSeverPath(StringView value) override;

    // Each operation for diagnostics raises error 91 after Terminate.
    void AP_SendCmd(String module, String command) override;
    void AP_SendCmdAll(String command) override;
    void AP_Shell(String module, std::int16_t mode, StringView commandLine) override;
    String CurrentDesignName() override;
    String LanguagePath() override;
    /// Returns the main form's caption; no value if the form is not loaded. Does not load the form.
    std::optional<String> Caption() override;

    /// The folder of the suite's INI file, ending in a backslash.
    const String& SystemFolder() const { return systemFolder_; }
    /// The existing file that the host's command line names. Empty if the line names no such file or has more than two
    /// pieces.
    const String& StartFile() const { return startFile_; }

 private:
    class Link;

    void ParseCommandLine();
    /// The main form; error 91 after Terminate.
    frmBackProcessMain& Form() const;

    std::unique_ptr<Link> link_;
    bool terminating_ = false;
    String systemFolder_;
    String startFile_;
};

}  // namespace host
