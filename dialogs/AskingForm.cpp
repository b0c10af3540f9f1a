#include "dialogs/AskingForm.h"

#include "runtime/Error.h"
#include "services/Localisation.h"

namespace dialogs {

void AskingForm::SetForm(runtime::Form& form) {
    services::SetForm(form);
}

AskingForm::Asking::Asking(AskingForm& form) : form_(form) {
    if (form_.isAsking_) {
        throw runtime::ErrorAbout(runtime::kFormAlreadyDisplayed,
                                  form_.Name() + u"; its question must be answered first");
    }
    form_.isAsking_ = true;
}

// A handler of the unload must not ask with this dialog again, so it counts as asking until it is gone.
AskingForm::Asking::~Asking() {
    runtime::SkipError([this] { form_.Unload(); });
    form_.isAsking_ = false;
}

}  // namespace dialogs
