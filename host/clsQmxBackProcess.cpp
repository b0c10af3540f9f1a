#include "host/clsQmxBackProcess.h"

#include <utility>

#include "host/Composition.h"
#include "host/HostCommandLine.h"
#include "host/frmBackProcessMain.h"
#include "kernel_api/Kernel.h"
#include "kernel_api/Reader.h"
#include "routing/CommandInterpreter.h"
#include "routing/ModuleList.h"
#include "runtime/Error.h"
#include "runtime/Operation.h"
#include "runtime/Screen.h"
#include "services/ProcessValues.h"
#include "services/modReg.h"

namespace host {
namespace {

using runtime::IgnoreErrors;

void SetKernelString(StringView key, String value) {
    kernel_api::CurrentKernel().E_SetString(key, value);
}

}  // namespace

/// Links an instance to the main form. While the link exists, the form's event reaches the instance's client.
class clsQmxBackProcess::Link {
 public:
    Link(frmBackProcessMain& mainForm, NotifyServerEvent notifyServer)
        : form(mainForm), connection_(mainForm.NotifyClass().Connect(std::move(notifyServer))) {}

    frmBackProcessMain& form;

 private:
    frmBackProcessMain::NotifyClassEvent::Connection connection_;
};

clsQmxBackProcess::clsQmxBackProcess(NotifyServerEvent notifyServer)
    : link_(std::make_unique<Link>(MainForm(), std::move(notifyServer))) {
    SetKernelString(u"INITBP", u"INIT");
    services::InitNumberFormats();
    services::Values().moduleName.clear();
    ParseCommandLine();
    kernel_api::CurrentReader().NormaliseFolder(systemFolder_);
    SetKernelString(u"IniFile", systemFolder_ + String(kernel_api::kIniFileName));
    services::Values().installFolder = services::GetInstallFolder();
    const runtime::Operation operation;
    services::LoadDirectories();
    services::LoadProductIdentity();
}

clsQmxBackProcess::~clsQmxBackProcess() = default;

void clsQmxBackProcess::ParseCommandLine() {
    HostCommandLine given = ReadHostCommandLine();
    systemFolder_ = std::move(given.systemFolder);
    startFile_ = std::move(given.startFile);
}

bool clsQmxBackProcess::Load(std::int16_t /*iMode*/) {
    bool broughtUp = false;
    IgnoreErrors([] { runtime::SetMousePointer(runtime::kHourglassPointer); });
    IgnoreErrors([&] {
        if (!link_) throw runtime::Error(runtime::kObjectVariableNotSet);
        frmBackProcessMain& form = link_->form;
        if (routing::IsFormShown(form)) return;
        IgnoreErrors([&] { form.SetState(runtime::WindowState::kMinimised); });
        IgnoreErrors([&] { form.SetVisible(false); });
        IgnoreErrors([&] { form.Hide(); });
        broughtUp = true;
    });
    IgnoreErrors([] { runtime::SetMousePointer(runtime::kDefaultPointer); });
    return broughtUp;
}

void clsQmxBackProcess::NotifyMe(StringView /*Aname*/, StringView sCommand) {
    if (sCommand.empty()) return;
    Form().AP_ExeCmd(sCommand);
}

String clsQmxBackProcess::SeverPath() {
    services::Values().serverPath.clear();
    return {};
}

void clsQmxBackProcess::SetSeverPath(StringView value) {
    services::Values().serverPath = value;
}

void clsQmxBackProcess::AP_SendCmd(String module, String command) {
    Form().AP_SendCmd(module, command);
}

void clsQmxBackProcess::AP_SendCmdAll(String command) {
    Form().AP_SendCmdAll(command);
}

void clsQmxBackProcess::AP_Shell(String module, std::int16_t mode, StringView commandLine) {
    Form().AP_Shell(module, mode, commandLine);
}

String clsQmxBackProcess::CurrentDesignName() {
    Form();
    return routing::CurrentDesignName();
}

String clsQmxBackProcess::LanguagePath() {
    Form();
    return routing::LanguagePath();
}

std::optional<String> clsQmxBackProcess::Caption() {
    frmBackProcessMain& form = Form();
    return form.IsLoaded() ? std::optional(form.Caption()) : std::nullopt;
}

frmBackProcessMain& clsQmxBackProcess::Form() const {
    if (!link_) throw runtime::ErrorAbout(runtime::kObjectVariableNotSet, kInstanceHasEnded);
    return link_->form;
}

void clsQmxBackProcess::Terminate() {
    if (!link_ || terminating_) return;
    terminating_ = true;
    runtime::FirstError error;
    error.Run([this] { link_->form.Unload(); });
    link_.reset();
    // Publish this after an error as well, because the suite must not regard this process as running.
    error.Run([] { SetKernelString(u"INITBP", u"TERM"); });
    error.Rethrow();
}

}  // namespace host
