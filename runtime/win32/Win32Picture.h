// Pictures as the system shows them.
#pragma once

#include "runtime/Picture.h"
#include "runtime/win32/Win32Control.h"

namespace runtime::win32 {

/// None when the system cannot make it.
Icon MakeIcon(const Picture& picture);

}  // namespace runtime::win32
