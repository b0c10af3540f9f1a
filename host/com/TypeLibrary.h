// The type library that sits in the module's resources; it is read from there whether or not it is registered.
#pragma once

#include "host/com/ComPtr.h"

namespace host::com {

/// Empty when it cannot be read. While a reference is held the system reads the file only once.
ComPtr<ITypeLib> OpenTypeLibrary() noexcept;

/// The description of the interface or class with that identifier. Throws the HRESULT of a library that cannot be read.
ComPtr<ITypeInfo> DescriptionOf(REFGUID guid);

}  // namespace host::com
