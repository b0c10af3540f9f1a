// The process that the component is loaded into, as Windows knows it.
#pragma once

#include "runtime/ProcessPort.h"
#include "runtime/win32/WindowsHeaders.h"

namespace runtime::win32 {

class Win32Process : public ProcessPort {
 public:
    /// `component` is the module whose folder ComponentFolder gives; null stands for the program itself.
    explicit Win32Process(HMODULE component) : component_(component) {}

    String CommandLine() override;
    String ComponentFolder() override;
    /// Claims of one process share what they hold, whichever thread or copy of this code has them: the last one gives
    /// it up. What a process held that ended in any way is free. Error 7 when the system lacks the means.
    std::unique_ptr<InstanceClaim> ClaimFirstInstance() override;

 private:
    HMODULE component_;
};

}  // namespace runtime::win32
