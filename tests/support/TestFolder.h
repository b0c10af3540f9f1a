// Where the running test program lies; what it needs beside itself is looked for from there.
#pragma once

#include "runtime/win32/ModulePath.h"

namespace tests {

/// Without a backslash at its end.
inline runtime::String TestFolder() {
    return runtime::win32::FolderOf(runtime::win32::ModulePath(nullptr));
}

}  // namespace tests
