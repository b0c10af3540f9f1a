// Composes the component for Windows: chooses the back ends of the forms runtime and the suite's kernel library.
#pragma once

#include "host/Composition.h"

namespace host {

/// With the value "1" in the environment of the host program, no dialog is shown (UnattendedDialogs). Read when the
/// process is composed.
inline constexpr const wchar_t* kUnattendedVariable = L"K4TBACKPROCESS_UNATTENDED";

/// The component of this process. The first call composes it; it exists until the process ends. `module` is the
/// component's own module handle (HINSTANCE).
Composition& EnsureComposed(void* module);

}  // namespace host
