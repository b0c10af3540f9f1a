// The suite's modules as this component knows them: the list that the suite keeps, this module's place in it, the
// window message that all modules share, and this module's published state.
#pragma once

#include <cstdint>
#include <vector>

#include "runtime/Text.h"
#include "services/ProcessValues.h"

namespace routing {

/// Number of the message registered under "PELORIX"; kept so that all modules agree on it, never sent from here.
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
/// Index of services::kOwnModuleName in ModuleNames, the last one if it is there more than once; 0 when absent.
inline std::int32_t& OwnModuleIndex() {
    return services::Values().ownModuleIndex;
}

/// Registers the shared message and reads the kernel string "AllAps". The errors of kernel, reader and field splitter
/// pass.
void ReadModuleList();

/// Publishes the main form's caption and window state together with `extra` under the module's name, or the empty
/// string when `active` is 0: the module is not running. Else the main form is loaded if it is not; error 91 when there
/// is none. The errors of the kernel pass.
void PublishModuleState(std::int32_t active, std::int32_t extra);

/// `form` is among the loaded forms and visible. Does not load it.
bool IsFormShown(runtime::Form& form);

}  // namespace routing
