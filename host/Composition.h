// The one place that chooses what the component runs on: the back ends of the forms runtime, the suite's
// kernel, its reader and its splitter, and the suite's message box behind the services.
#pragma once

namespace host {

/// Composes the process once, for as long as it runs; later calls do nothing. `module` is the component's own module
/// handle (HINSTANCE).
void EnsureComposed(void* module);

}  // namespace host
