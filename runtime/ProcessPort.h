// The interface of the process that the component runs in.
#pragma once

#include <memory>

#include "runtime/Text.h"

namespace runtime {

/// The claim to be the first instance of the application. The destructor releases it.
class InstanceClaim {
 public:
    virtual ~InstanceClaim() = default;
};

class ProcessPort {
 public:
    virtual ~ProcessPort() = default;

    /// Returns the arguments of the process's command line, unchanged, without the program's own path.
    virtual String CommandLine() = 0;
    /// Returns the folder of the component's own file. The result ends with a backslash only if it is a drive's root.
    virtual String ComponentFolder() = 0;
    /// Claims to be the first instance of the application. Returns null if another process that runs the same
    /// executable file in the same session holds the claim.
    virtual std::unique_ptr<InstanceClaim> ClaimFirstInstance() = 0;
};

}  // namespace runtime
