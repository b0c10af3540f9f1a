// Sets the DPI with which the thread creates windows. In a program that is aware of each monitor's DPI, a dialog whose
// design is in twips would have the wrong size on a monitor whose DPI differs from the first monitor's. Therefore
// dialogs use one DPI, and the system scales them.
#pragma once

#include "runtime/WindowsPort.h"
#include "runtime/win32/WindowsHeaders.h"

namespace runtime::win32 {

/// While the object exists, the thread creates windows with the system's DPI. Changes nothing in programs that are not
/// aware of each monitor's DPI. Changes nothing on systems before Windows 10, version 1607.
class SystemResolution final : public ResolutionScope {
 public:
    SystemResolution();
    SystemResolution(const SystemResolution&) = delete;
    SystemResolution& operator=(const SystemResolution&) = delete;
    ~SystemResolution() override;

 private:
    HANDLE before_ = nullptr;  ///< the thread's former setting; null if it was not changed
};

}  // namespace runtime::win32
