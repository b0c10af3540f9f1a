// Stores the runtime's process-wide state. Only sources of this folder include this file. Other code uses
// CurrentPorts, LoadedForms, CurrentFormObserver and Operation.
#pragma once

#include <functional>
#include <vector>

#include "runtime/FormObserver.h"
#include "runtime/LoadedForms.h"
#include "runtime/Ports.h"

namespace runtime {

/// Use it only on the home thread. Any thread may read the number of loaded forms, and may clean up after the home
/// thread has ended.
struct ProcessState {
    const Ports* ports = nullptr;  ///< null before UsePorts
    LoadedFormsCollection loadedForms;
    FormObserver* formObserver = nullptr;
    int operations = 0;                         ///< the depth of nested operations
    std::vector<std::function<void()>> forget;  ///< called when the outermost operation ends
};

/// Returns the state. It exists until the process ends.
ProcessState& State();

}  // namespace runtime
