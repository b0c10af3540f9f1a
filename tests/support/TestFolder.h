// The folder of the running test program, for finding files beside it.
#pragma once

#include "runtime/win32/ModulePath.h"

namespace tests {

/// The folder without a trailing backslash.
inline runtime::String TestFolder() {
    return runtime::win32::FolderOf(runtime::win32::ModulePath(nullptr));
}

}  // namespace tests
