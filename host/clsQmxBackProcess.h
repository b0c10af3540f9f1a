// The service object. A module creates an instance to use the back process. Each new instance reads and publishes the
// suite's settings. It passes its client's commands to the main form, and the main form's commands to its client. The
// COM layer calls it, but the class itself does not use COM.
//
// Home thread only. An instance must be terminated before it is destroyed.
#pragma once

#include <memory>

#include "host/ServiceObject.h"

namespace host {

class frmBackProcessMain;

class clsQmxBackProcess final : public ServiceObject {
 public:
    /// Links to the main form, which is created if necessary but not loaded, and publishes the settings. Errors of the
    /// kernel, the settings and the reader reach the caller; the link is removed then.
    explicit clsQmxBackProcess(NotifyServerEvent notifyServer);
    ~clsQmxBackProcess() override;

    /// Unloads the shared main form while the event still reaches the client, then removes the link. A second call does
    /// nothing. Errors reach the caller after all steps.
    void Terminate() override;

    /// Loads the main form, hidden. False if the form was visible or after Terminate, else True. Never throws. `iMode`
    /// is not used.
    bool Load(std::int16_t iMode) override;
    /// Carries out a command for this component. An empty command does nothing. `Aname` is not used. Error 91 after
    /// Terminate.
    void NotifyMe(StringView Aname, StringView sCommand) override;
    /// Clears the stored value and returns an empty text.
    String SeverPath() override;
    void SetSeverPath(StringView value) override;

    // All operations of diagnostics: error 91 after Terminate.
    void AP_SendCmd(String module, String command) override;
    void AP_SendCmdAll(String command) override;
    void AP_Shell(String module, std::int16_t mode, StringView commandLine) override;
    String CurrentDesignName() override;
    String LanguagePath() override;
    /// Does not load the form.
    std::optional<String> Caption() override;

    /// The folder of the suite's INI file, ending in a backslash.
    const String& SystemFolder() const { return systemFolder_; }
    /// The file on the host's command line, or empty.
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
