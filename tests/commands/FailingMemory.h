// A program that links this file can make all C++ allocations of the process fail.
#pragma once

namespace tests {

/// If `isShort` is true, all later allocations fail. Otherwise later allocations succeed again.
void MakeMemoryShort(bool isShort);

}  // namespace tests
