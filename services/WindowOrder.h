// Keeps a form's window above all other windows. The query dialog uses this.
#pragma once

namespace runtime {
class Form;
}

namespace services {

/// Makes the form's window topmost, or makes it an ordinary window again. Position and size stay unchanged. Loads the
/// form if necessary. Call only on the home thread.
void SetWindowTopMost(runtime::Form& form, bool onTop);

}  // namespace services
