// The resolution that windows are created in. In a program that is aware of each monitor's resolution, a dialog in
// twips would have the wrong size on a monitor that differs from the first one. The system scales windows that know one
// resolution only.
#pragma once

#include "runtime/WindowsPort.h"
#include "runtime/win32/WindowsHeaders.h"

namespace runtime::win32 {

/// While it exists, windows that this thread creates know the system's resolution only. Changes nothing in programs
/// that are not aware of each monitor's resolution, and on systems without such a choice (before Windows 10, 1607).
class SystemResolution final : public ResolutionScope {
 public:
    SystemResolution();
    SystemResolution(const SystemResolution&) = delete;
    SystemResolution& operator=(const SystemResolution&) = delete;
    ~SystemResolution() override;

 private:
    HANDLE before_ = nullptr;  ///< the thread's former choice; null if it was left alone
};

}  // namespace runtime::win32
