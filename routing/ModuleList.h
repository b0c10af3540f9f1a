// The suite's modules as this component knows them: the suite's list of modules, this module's index in it, the window
// message that all modules share, and this module's published state.
#pragma once

#include <cstdint>
#include <vector>

#include "runtime/Text.h"
#include "services/ProcessValues.h"

namespace routing {

/// Number of the window message registered under "PELORIX". All modules share it. This component never sends it.
inline std::uint32_t& InterModuleMessage() {
    return services::Values().interModuleMessage;
}
/// Entries 1..ModuleCount are the modules' names in list order; entry 0 stays empty. No entries before the first read.
inline std::vector<runtime::String>& ModuleNames() {
    return services::Values().moduleNames;
}
inline std::int32_t& ModuleCount() {
    return services::Values().moduleCount;
}
/// Index of services::kOwnModuleName in ModuleNames; the last index if the name occurs more than once; 0 if absent.
inline std::int32_t& OwnModuleIndex() {
    return services::Values().ownModuleIndex;
}

/// Registers the shared message and reads the list of modules from the kernel string "AllAps". Errors of the kernel,
/// the reader and the field splitter reach the caller.
void ReadModuleList();

/// Publishes this module's state as the kernel string with the module's name.
/// - `active` is 0: the empty string, because the module is not running.
/// - Otherwise: the main form's caption and window state, and `extra`. Loads the main form if necessary; error 91 if
///   there is none.
/// Errors of the kernel reach the caller.
void PublishModuleState(std::int32_t active, std::int32_t extra);

/// Whether `form` is loaded and visible. Does not load it.
bool IsFormShown(runtime::Form& form);

}  // namespace routing
