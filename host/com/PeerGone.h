// Recognises the results with which COM reports that the object behind a proxy no longer exists, because its apartment
// or process has ended. In this case the call has run no code of the object.
#pragma once

#include "host/com/ComHeaders.h"

namespace host::com {

bool IsPeerGone(HRESULT result) noexcept;

}  // namespace host::com
