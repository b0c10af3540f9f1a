#include "host/ProcessLife.h"

#include <memory>

#include "dialogs/Qmxquery.h"
#include "dialogs/frmQMXMsgBox.h"
#include "host/frmBackProcessMain.h"
#include "routing/CommandInterpreter.h"
#include "routing/FieldSplitter.h"
#include "routing/ModuleList.h"
#include "runtime/Form.h"
#include "runtime/LoadedForms.h"
#include "runtime/NeverDestroyed.h"
#include "services/NumberFormats.h"
#include "services/ProcessValues.h"

namespace host {
namespace {

std::unique_ptr<frmBackProcessMain>& mainForm = runtime::NeverDestroyed<std::unique_ptr<frmBackProcessMain>>();

}  // namespace

frmBackProcessMain& MainForm() {
    if (!mainForm) mainForm = std::make_unique<frmBackProcessMain>();
    return *mainForm;
}

bool MainFormExists() {
    return mainForm != nullptr;
}

std::size_t LoadedWindowCount() {
    return runtime::LoadedForms().Count();
}

void ForgetForms() {
    runtime::LoadedForms().Clear();
    dialogs::ForgetSuiteBox();
    dialogs::ForgetQuery();
    routing::ForgetOpenMessages();
    if (!mainForm) return;
    // It may have been on its way in or out, without a window.
    mainForm->AbandonWindow();
    mainForm->GiveUpClaim();
}

void ReleaseProcess() {
    mainForm.reset();
    dialogs::ReleaseSuiteBox();
    dialogs::ReleaseQuery();
    services::processValues = {};
    services::numberFormats = {};
    routing::ResetCommandInterpreter();
    routing::ResetModuleList();
    routing::ResetFieldSplitter();
}

}  // namespace host
