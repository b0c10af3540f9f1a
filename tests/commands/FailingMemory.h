// In a program that links FailingMemory.cpp, a test can make every allocation with `new` fail.
#pragma once

namespace tests {

/// If `isShort` is true, all later allocations with `new` fail. Otherwise they succeed again.
void MakeMemoryShort(bool isShort);

}  // namespace tests
