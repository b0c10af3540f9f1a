// A program that links this file can make all its allocations with `new` fail.
#pragma once

namespace tests {

/// If `isShort` is true, all later allocations with `new` fail. Otherwise they succeed again.
void MakeMemoryShort(bool isShort);

}  // namespace tests
