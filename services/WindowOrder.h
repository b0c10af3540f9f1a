// Keeps a form's window above the others, for the suite's common dialogs.
#pragma once

namespace runtime {
class Form;
}

namespace services {

/// Makes the form's window topmost, or an ordinary window again. Place and size stay. Loads the form if necessary. Home
/// thread only.
void SetWindowTopMost(runtime::Form& form, bool onTop);

}  // namespace services
