// The answers by which COM says that the other side of a proxy no longer exists: its apartment or its process has
// ended. A call that is answered so has run nothing there.
#pragma once

#include "host/com/ComHeaders.h"

namespace host::com {

bool IsPeerGone(HRESULT result) noexcept;

}  // namespace host::com
