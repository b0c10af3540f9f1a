// The functions of the DLL's exports.
#pragma once

#include "host/com/ComHeaders.h"

namespace host::com {

/// Keeps the module in memory until the process ends. The compiler's static runtime frees neither its TLS slot nor its
/// handles when a DLL is unloaded, and a client may load and free the DLL many times.
HRESULT GetClassObject(REFCLSID classId, REFIID iid, void** object) noexcept;
// RegisterServer and UnregisterServer change the entries of the machine.

HRESULT RegisterServer() noexcept;
HRESULT UnregisterServer() noexcept;
/// A `commandLine` of "user" selects the current user; null or an empty one selects the machine. E_INVALIDARG for any
/// other.
HRESULT Install(bool install, const wchar_t* commandLine) noexcept;

}  // namespace host::com
