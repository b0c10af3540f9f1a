// Recognises the results with which COM reports that the object behind a proxy no longer exists, because its apartment
// or process has ended. The call may still have run a part of the object's code.
#pragma once

#include "host/com/ComHeaders.h"

namespace host::com {

bool IsPeerGone(HRESULT result) noexcept;

}  // namespace host::com
