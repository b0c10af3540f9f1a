// The type library in the module's resources. It is read from there, whether or not it is registered.
#pragma once

#include "host/com/ComPtr.h"

namespace host::com {

/// The type library; empty if it cannot be read. While a reference is held, the system reads the file only once.
ComPtr<ITypeLib> OpenTypeLibrary() noexcept;

/// The description of the interface or class `guid`. Throws the HRESULT if the library cannot be read.
ComPtr<ITypeInfo> DescriptionOf(REFGUID guid);

}  // namespace host::com
