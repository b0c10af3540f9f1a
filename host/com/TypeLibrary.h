// The type library in the module's resources. It is read from there, whether or not it is registered.
#pragma once

#include "host/com/ComPtr.h"

namespace host::com {

/// Keeps the library open for the rest of the process, if it can be read: the system's marshaller needs it on every
/// thread.
void KeepTypeLibraryOpen() noexcept;

/// The description of the interface or class `guid`. Throws the HRESULT if the library cannot be read.
ComPtr<ITypeInfo> DescriptionOf(REFGUID guid);

}  // namespace host::com
