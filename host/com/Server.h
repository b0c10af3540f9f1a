// What the DLL's exports do; the exports themselves only pass on.
#pragma once

#include "host/com/ComHeaders.h"

namespace host::com {

/// Pins the module: from here on it stays in memory, because the compiler's static runtime gives back neither its TLS
/// slot nor its handles when a DLL is unloaded, and a client may load and free it many times.
HRESULT GetClassObject(REFCLSID classId, REFIID iid, void** object) noexcept;
/// For the machine.
HRESULT RegisterServer() noexcept;
HRESULT UnregisterServer() noexcept;
/// `commandLine` "user" means the current user, none or an empty one the machine; E_INVALIDARG for anything else.
HRESULT Install(bool install, const wchar_t* commandLine) noexcept;

}  // namespace host::com
