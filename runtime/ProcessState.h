// What the runtime stores for the whole process. Only sources of this folder include it; all others call CurrentPorts,
// LoadedForms, CurrentFormObserver and Operation.
#pragma once

#include <functional>
#include <vector>

#include "runtime/FormObserver.h"
#include "runtime/LoadedForms.h"
#include "runtime/Ports.h"

namespace runtime {

/// Home thread only, apart from the number of loaded forms.
struct ProcessState {
    const Ports* ports = nullptr;  ///< null before UsePorts
    LoadedFormsCollection loadedForms;
    FormObserver* formObserver = nullptr;
    int operations = 0;                         ///< the depth of nested operations
    std::vector<std::function<void()>> forget;  ///< called when the current operation ends
};

/// The state exists until the process ends.
ProcessState& State();

}  // namespace runtime
