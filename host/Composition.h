// The one place that chooses what the component runs on under Windows: the back ends of the forms runtime and the
// suite's kernel library.
#pragma once

#include "host/Process.h"

namespace host {

/// Composes the process once, for as long as it runs; later calls do nothing. `module` is the component's own module
/// handle (HINSTANCE).
Process& EnsureComposed(void* module);

}  // namespace host
