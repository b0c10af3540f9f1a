#include "host/Composition.h"

#include <memory>

#include "dialogs/Qmxquery.h"
#include "dialogs/frmQMXMsgBox.h"
#include "host/frmBackProcessMain.h"
#include "kernel_api/Suite.h"
#include "runtime/Error.h"
#include "runtime/Form.h"
#include "runtime/LoadedForms.h"
#include "runtime/Operation.h"

namespace host {
namespace {

/// Unloads all forms. Does not process pending window events, because such an event could load a form again.
void UnloadForms() {
    while (runtime::Form* const last = runtime::LoadedForms().LastToUnload()) {
        runtime::IgnoreErrors([last] { last->Unload(); });
        if (last->IsLoaded()) last->AbandonWindow();
    }
}

}  // namespace

Composition::Composition(const runtime::Ports& ports, kernel_api::Kernel& kernel)
    : reader_(ports.files, ports.settings, ports.locale) {
    reader_.UseLanguageFolder([this] { return values_.languagePath; });
    values_.suiteMessageBox = dialogs::AskWithSuiteBox;
    values_.suiteQuery = dialogs::AskWithQueryDialog;
    runtime::UsePorts(&ports);
    kernel_api::CurrentSuite() = {&kernel, &reader_, &splitter_};
    services::UseValues(&values_);
}

Composition::~Composition() {
    UnloadForms();
    values_.forms = {};
    services::UseValues(nullptr);
    kernel_api::CurrentSuite() = {};
    runtime::UsePorts(nullptr);
}

frmBackProcessMain& MainForm() {
    auto& form = services::Values().forms.main;
    if (!form) form = std::make_unique<frmBackProcessMain>();
    return static_cast<frmBackProcessMain&>(*form);
}

bool MainFormExists() {
    return services::Values().forms.main != nullptr;
}

std::size_t LoadedWindowCount() {
    return runtime::LoadedForms().Count();
}

void AbandonForms() {
    runtime::Operation::Abandon();
    runtime::LoadedForms().Clear();
    // Do not destroy the dialogs, because a question may still be open in them on their thread.
    static_cast<void>(services::Values().forms.messageBox.release());
    static_cast<void>(services::Values().forms.query.release());
    if (MainFormExists()) MainForm().Abandon();
}

}  // namespace host
