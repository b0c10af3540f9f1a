// Makes the error for a window, a font or another object that the system cannot create.
#pragma once

#include <cstdint>

#include "runtime/Error.h"

namespace runtime::win32 {

/// Returns error 7. The description contains `what`, which says what failed, and the calling thread's last Windows
/// error code.
Error OutOfResources(StringView what);
/// Does the same with the Windows error code `systemError`.
Error OutOfResources(StringView what, std::uint32_t systemError);

}  // namespace runtime::win32
