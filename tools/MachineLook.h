// Inspects the machine for `backproc doctor`. It creates no instance, so the strings that running modules share do not
// change.
#pragma once

#include "tools/Diagnosis.h"

namespace tools {

/// Call the function on a thread that is in an apartment.
MachineState LookAtMachine();

}  // namespace tools
