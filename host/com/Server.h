// Implements the functions that the DLL exports.
#pragma once

#include "host/com/ComHeaders.h"

namespace host::com {

/// Returns a class factory. Keeps the DLL in memory until the process ends, because the compiler's static runtime
/// frees neither its TLS slot nor its handles when a DLL is unloaded. Without this, each load and unload of the DLL
/// would leak.
HRESULT GetClassObject(REFCLSID classId, REFIID iid, void** object) noexcept;
// RegisterServer and UnregisterServer change the machine's entries.

HRESULT RegisterServer() noexcept;
HRESULT UnregisterServer() noexcept;
/// Registers or unregisters the component. A `commandLine` of "user" selects the current user. A null or empty
/// `commandLine` selects the machine. Any other `commandLine` returns E_INVALIDARG.
HRESULT Install(bool install, const wchar_t* commandLine) noexcept;

}  // namespace host::com
