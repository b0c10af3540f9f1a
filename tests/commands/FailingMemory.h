// A program that links this file can make all C++ allocations of the process fail.
#pragma once

namespace tests {

/// Makes all later allocations fail, or succeed again.
void MakeMemoryShort(bool isShort);

}  // namespace tests
