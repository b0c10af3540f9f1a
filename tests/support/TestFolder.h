// Returns the folder of the running test program, where tests find other files.
#pragma once

#include "runtime/win32/ModulePath.h"

namespace tests {

/// Returns the folder without a trailing backslash.
inline runtime::String TestFolder() {
    return runtime::win32::FolderOf(runtime::win32::ModulePath(nullptr));
}

}  // namespace tests
