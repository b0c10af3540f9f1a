// Reads the type library from the resources of the DLL or program that contains this code. The library does not need to
// be registered.
#pragma once

#include "host/com/ComPtr.h"

namespace host::com {

/// Keeps the library open until the process ends, because the system's marshaller needs it on every thread. Ignores an
/// error if the library cannot be read.
void KeepTypeLibraryOpen() noexcept;

/// Returns the description of the interface or class `guid`. If the library cannot be read, throws the HRESULT.
ComPtr<ITypeInfo> DescriptionOf(REFGUID guid);

}  // namespace host::com
