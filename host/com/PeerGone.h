// The results with which COM reports that the other side of a proxy no longer exists, because its apartment or process
// has ended. A call with such a result has run no code there.
#pragma once

#include "host/com/ComHeaders.h"

namespace host::com {

bool IsPeerGone(HRESULT result) noexcept;

}  // namespace host::com
