// What a refusal of the system is for those who use the runtime.
#pragma once

#include "runtime/Error.h"

namespace runtime::win32 {

/// Error 7, about `what` is lacking, with the thread's last system error.
Error SystemFailure(StringView what);

}  // namespace runtime::win32
