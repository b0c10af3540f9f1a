// The Windows process that the component is loaded into.
#pragma once

#include "runtime/ProcessPort.h"
#include "runtime/win32/WindowsHeaders.h"

namespace runtime::win32 {

class Win32Process : public ProcessPort {
 public:
    /// `component` is the DLL whose folder ComponentFolder returns; null means the program itself.
    explicit Win32Process(HMODULE component) : component_(component) {}

    String CommandLine() override;
    String ComponentFolder() override;
    /// A process may have several claims, on any threads and from several copies of this code. The process stays the
    /// first instance until its last claim is destroyed. When a process ends or crashes, the system releases its
    /// claims. Error 7 if the system cannot create the claim.
    std::unique_ptr<InstanceClaim> ClaimFirstInstance() override;

 private:
    HMODULE component_;
};

}  // namespace runtime::win32
