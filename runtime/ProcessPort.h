// The process that the component runs in.
#pragma once

#include <memory>

#include "runtime/Text.h"

namespace runtime {

/// Holds the claim of being the first instance; gives it up when destroyed.
class InstanceClaim {
 public:
    virtual ~InstanceClaim() = default;
};

class ProcessPort {
 public:
    virtual ~ProcessPort() = default;

    /// The arguments of the host's command line as they were given, without the program's own path.
    virtual String CommandLine() = 0;
    /// The folder that holds the component's own file, without a final backslash unless it is a drive's root.
    virtual String ComponentFolder() = 0;
    /// Claims to be the first instance of the application: none when another process of the same session, running
    /// the same executable file, holds the claim.
    virtual std::unique_ptr<InstanceClaim> ClaimFirstInstance() = 0;
};

}  // namespace runtime
