// The type library that sits in the module's resources; it is read from there whether or not it is registered.
#pragma once

#include "host/com/ComPtr.h"

namespace host::com {

/// The description of the interface or class with that identifier. Throws the HRESULT of a library that cannot be read.
ComPtr<ITypeInfo> DescriptionOf(REFGUID guid);

}  // namespace host::com
