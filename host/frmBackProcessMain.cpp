#include "host/frmBackProcessMain.h"

#include <exception>
#include <utility>

#include "host/Observer.h"
#include "routing/CommandInterpreter.h"
#include "routing/CommandText.h"
#include "routing/ModuleList.h"
#include "runtime/Error.h"
#include "runtime/LoadedForms.h"
#include "runtime/Operation.h"
#include "runtime/Ports.h"
#include "runtime/Screen.h"
#include "services/LocalTexts.h"
#include "services/Localisation.h"
#include "services/ProcessValues.h"
#include "services/QMXHLP.h"
#include "services/modReg.h"

namespace host {
namespace {

using runtime::Twips;

constexpr Twips kSmallestWidth = 8000;
constexpr Twips kSmallestHeight = 3000;

runtime::FormDesign MainFormDesign() {
    return {
        .name = u"frmBackProcessMain",
        .caption = u"Form1",
        .tag = u"561",
        .left = 8595,
        .top = 5070,
        .inner = {2025, 2130},
    };
}

runtime::ControlDesign MsgLineDesign() {
    return {
        .kind = runtime::ControlKind::kStatusBar,
        .name = u"MsgLine",
        .bounds = {0, 1800, 2025, 330},
        .align = runtime::Align::kBottom,
    };
}

}  // namespace

frmBackProcessMain::frmBackProcessMain() : Form(MainFormDesign()), msgLine_(AddControl(MsgLineDesign())) {}

void frmBackProcessMain::SetForm(runtime::Form& form) {
    services::SetForm(form);
}

void frmBackProcessMain::Abandon() {
    // While the form loads or unloads, it may have no window. AbandonWindow then only resets the form's state.
    AbandonWindow();
    interpreter_.AbandonOpenMessages();
    firstInstance_.reset();
}

void frmBackProcessMain::EditMsgLine(StringView text) {
    msgLine_.SetText(text);
    msgLine_.Refresh();
}

void frmBackProcessMain::AP_ExeCmd(StringView command) {
    const std::exception_ptr failure = interpreter_.Execute(command, *this, staysLoaded_);
    if (!failure) return;
    if (Observer* const observer = CurrentObserver()) observer->CommandFailed(failure);
    interpreter_.ReportFailure(failure);
}

void frmBackProcessMain::AP_SendCmd(String& module, String& command) {
    notifyClass_.Raise(module, command);
}

void frmBackProcessMain::AP_SendCmdAll(String& command) {
    String module(services::kOwnModuleName);
    notifyClass_.Raise(module, command);
}

void frmBackProcessMain::AP_Shell(String& module, std::int16_t mode, StringView commandLine) {
    String command = routing::ShellCommand(mode, commandLine);
    notifyClass_.Raise(module, command);
}

// An error while loading unloads all forms of the component without a message.
void frmBackProcessMain::OnLoad() {
    try {
        Announce();
    } catch (const std::exception& error) {
        if (Observer* const observer = CurrentObserver()) observer->LoadShutDown(error);
        runtime::IgnoreErrors([] { runtime::LoadedForms().UnloadAll(); });
    }
}

void frmBackProcessMain::Announce() {
    const runtime::Operation operation;
    services::ProcessValues& values = services::Values();
    SetCaption(services::GetLocalText(services::kApplicationCaption));
    values.moduleCaption = services::GetLocalText(services::kModuleCaption);
    values.moduleName = services::GetProductName();
    handle_ = Handle();
    firstInstance_ = runtime::CurrentPorts().process.ClaimFirstInstance();
    if (!firstInstance_) throw runtime::Error(runtime::kSilent);
    const runtime::Size screen = runtime::ScreenSize();
    Move((screen.width - Width()) / 2.0F, (screen.height - Height()) / 2.0F);
    services::ChooseUiFont(Handle(), DeviceContext());
    SetVisible(false);
    services::LocaliseForm(*this);
    routing::ReadModuleList();
    routing::PublishModuleState(-1, 0);
    SetVisible(false);
    values.helpFilePath = services::HelpFileOfInstallation();
}

void frmBackProcessMain::OnQueryUnload(bool& /*cancel*/, runtime::UnloadReason /*reason*/) {
    services::SaveWindowPlacement(*this);
}

void frmBackProcessMain::OnUnload(bool& /*cancel*/) {
    // Release the claim when this function ends, even after an error.
    const auto claim = std::move(firstInstance_);
    // Run every step even if another one fails, because the clients must receive SHUTDOWN in any case.
    runtime::FirstError error;
    error.Run([] { routing::PublishModuleState(0, 0); });
    error.Run([this] { services::CloseHelp(handle_); });
    error.Run([] { runtime::LoadedForms().UnloadOthers(); });
    error.Run([this] {
        String module(services::kOwnModuleName);
        String command(u"SHUTDOWN");
        notifyClass_.Raise(module, command);
    });
    error.Rethrow();
}

void frmBackProcessMain::OnActivate() {
    SetVisible(false);
}

void frmBackProcessMain::OnShownByOthers() {
    SetVisible(false);
}

void frmBackProcessMain::OnResize() {
    runtime::IgnoreErrors([this] {
        if (Width() < kSmallestWidth) SetWidth(kSmallestWidth);
    });
    runtime::IgnoreErrors([this] {
        if (Height() < kSmallestHeight) SetHeight(kSmallestHeight);
    });
}

void frmBackProcessMain::OnKeyDown(std::int16_t& /*keyCode*/, std::int16_t /*shift*/) {
    SetVisible(false);
}

void frmBackProcessMain::OnKeyUp(std::int16_t& /*keyCode*/, std::int16_t /*shift*/) {
    SetVisible(false);
}

void frmBackProcessMain::OnKeyPress(char16_t& /*character*/) {
    SetVisible(false);
}

}  // namespace host
