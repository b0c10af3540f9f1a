// The error for a window, a font or another object that the system refuses to make.
#pragma once

#include <cstdint>

#include "runtime/Error.h"

namespace runtime::win32 {

/// Error 7 that names what is missing, and the calling thread's last Windows error code.
Error OutOfResources(StringView what);
/// The same with the error code of an earlier call.
Error OutOfResources(StringView what, std::uint32_t systemError);

}  // namespace runtime::win32
