// Keeps a form's window above the others, for the suite's common dialogs.
#pragma once

namespace runtime {
class Form;
}

namespace services {

/// Puts the form's window above all windows that are not topmost, or takes it back among them. Place and size stay.
/// Loads a form that is not loaded.
void SetWindowTopMost(runtime::Form& form, bool onTop);

}  // namespace services
