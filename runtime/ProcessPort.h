// The process that the component runs in.
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

    /// The arguments of the process's command line, unchanged, without the program's own path.
    virtual String CommandLine() = 0;
    /// The folder of the component's own file. It ends with a backslash only if it is a drive's root.
    virtual String ComponentFolder() = 0;
    /// Claims to be the first instance of the application. None if the claim is held by another process that runs the
    /// same executable file in the same session.
    virtual std::unique_ptr<InstanceClaim> ClaimFirstInstance() = 0;
};

}  // namespace runtime
