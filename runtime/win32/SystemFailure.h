// What a refusal of the system is for those who use the runtime.
#pragma once

#include <cstdint>

#include "runtime/Error.h"

namespace runtime::win32 {

/// Error 7, about `what` is lacking, with the thread's last system error.
Error SystemFailure(StringView what);
/// The same with `systemError`, for when other calls have come between.
Error SystemFailure(StringView what, std::uint32_t systemError);

}  // namespace runtime::win32
