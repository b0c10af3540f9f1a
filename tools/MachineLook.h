// Looking at the machine for the doctor, without creating an instance, so that none of the strings that running modules
// share is changed.
#pragma once

#include "tools/Diagnosis.h"

namespace tools {

/// For a thread in an apartment.
MachineState LookAtMachine();

}  // namespace tools
