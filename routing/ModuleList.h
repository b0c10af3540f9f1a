// Stores what this component knows about the suite's modules: the suite's list of modules, this module's index in the
// list, the window message that all modules share, and this module's published state.
#pragma once

#include <cstdint>
#include <vector>

#include "runtime/Text.h"
#include "services/ProcessValues.h"

namespace routing {

/// The number of the window message registered under "PELORIX". All modules share the message. This component never
/// sends it.
inline std::uint32_t& InterModuleMessage() {
    return services::Values().interModuleMessage;
}
/// Entries 1..ModuleCount are the names of the modules in list order. Entry 0 is empty. There are no entries before the
/// first read.
inline std::vector<runtime::String>& ModuleNames() {
    return services::Values().moduleNames;
}
inline std::int32_t& ModuleCount() {
    return services::Values().moduleCount;
}
/// The index of services::kOwnModuleName in ModuleNames. If the name occurs more than once, the last index. 0 if the
/// name is absent.
inline std::int32_t& OwnModuleIndex() {
    return services::Values().ownModuleIndex;
}

/// Registers the shared message and reads the list of modules from the kernel string "AllAps". Errors of the kernel,
/// the reader and the field splitter reach the caller.
void ReadModuleList();

/// Publishes this module's state. The key of the kernel string is the module's name.
/// - If `active` is 0, publishes the empty string, because the module is not running.
/// - Otherwise, publishes the main form's caption and window state, and `extra`. Loads the main form if necessary.
///   Error 91 if there is no main form.
/// Errors of the kernel reach the caller.
void PublishModuleState(std::int32_t active, std::int32_t extra);

/// True if `form` is loaded and visible. Does not load the form.
bool IsFormShown(runtime::Form& form);

}  // namespace routing
