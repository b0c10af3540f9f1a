// Replaces a function that this program imports from a system library. The destructor restores the function. The
// replacement can record the arguments of the calls or choose their results. Only calls from the program's own code are
// replaced.
#pragma once

#include "runtime/win32/WindowsHeaders.h"

namespace tests {

class ReplacedImport {
 public:
    /// `entry` is the exported name of the function, for example "SendInput". `replacement` must have the same
    /// signature and calling convention. Fails the test if the program does not import `entry`.
    template <typename Function>
    ReplacedImport(const char* entry, Function* replacement)
        : ReplacedImport(entry, reinterpret_cast<ULONG_PTR>(replacement)) {}
    ReplacedImport(const ReplacedImport&) = delete;
    ReplacedImport& operator=(const ReplacedImport&) = delete;
    ~ReplacedImport();

 private:
    ReplacedImport(const char* entry, ULONG_PTR replacement);

    ULONG_PTR* place_;  ///< null if the program does not import the entry
    ULONG_PTR original_ = 0;
};

}  // namespace tests
