// The service object: what a module creates to have the back process at hand. The first one reads the settings that all
// share; each hands its client's commands to the main form, and the form's commands to its client. It has no state of
// its own beyond that link. The COM edge calls it; it knows nothing of COM itself.
//
// All members run on the thread that owns the main form. An instance must be terminated before it is destroyed.
#pragma once

#include <memory>

#include "host/ServiceObject.h"

namespace host {

class frmBackProcessMain;

class clsQmxBackProcess final : public ServiceObject {
 public:
    /// Creates or links to the main form, without loading it, and publishes the settings. An error (kernel, settings)
    /// leaves no instance behind.
    explicit clsQmxBackProcess(NotifyServerEvent notifyServer);
    ~clsQmxBackProcess() override;

    /// Unloads the shared main form while the event still reaches the client, then cuts the link. Runs once; a
    /// second call does nothing. Errors of the unload are thrown.
    void Terminate() override;

    /// Loads the main form hidden; True when it was not visible. Never fails. `iMode` is not used.
    bool Load(std::int16_t iMode) override;
    /// Has the main form carry out a command for this component. An empty one does nothing; `Aname` is not used. Error
    /// 91 after Terminate.
    void NotifyMe(StringView Aname, StringView sCommand) override;
    /// Always empty, and forgets the stored value.
    String SeverPath() override;
    void SetSeverPath(StringView value) override;

    /// Like the other operations of diagnostics, error 91 after Terminate.
    void AP_SendCmd(String module, String command) override;
    void AP_SendCmdAll(String command) override;
    void AP_Shell(String module, std::int16_t mode, StringView commandLine) override;
    String CurrentDesignName() override;
    String LanguagePath() override;
    /// Looking does not load the form.
    std::optional<String> Caption() override;

    /// The folder of the suite's INI file, ending in a backslash.
    const String& SystemFolder() const { return systemFolder_; }
    /// The file named on the host's command line, or empty.
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
