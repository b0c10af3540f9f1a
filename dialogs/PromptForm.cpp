#include "dialogs/PromptForm.h"

#include "runtime/Error.h"
#include "runtime/Operation.h"
#include "runtime/Ports.h"
#include "services/Localisation.h"
#include "services/MessageTexts.h"

namespace dialogs {

void PromptForm::SetForm(runtime::Form& form) {
    services::SetForm(form);
}

// If the direction cannot be looked up, use the direction of English.
bool PromptForm::IsRightToLeft() const {
    bool isRightToLeft = false;
    runtime::IgnoreErrors([&] { isRightToLeft = services::IsRightToLeft(); });
    return isRightToLeft;
}

void PromptForm::Load() {
    const runtime::Operation operation;
    EnsureLoaded();
}

PromptForm::PromptSession::PromptSession(PromptForm& form)
    : form_(form), resolution_(runtime::CurrentPorts().windows.UseSystemResolution()) {
    if (form_.hasOpenPrompt_) {
        throw runtime::ErrorAbout(runtime::kFormAlreadyDisplayed,
                                  form_.Name() + u"; close it before you show it again");
    }
    form_.hasOpenPrompt_ = true;
}

// Clears the flag after the unload, so that an unload handler cannot ask a question with this dialog.
PromptForm::PromptSession::~PromptSession() {
    runtime::IgnoreErrors([this] { form_.Unload(); });
    form_.hasOpenPrompt_ = false;
}

}  // namespace dialogs
