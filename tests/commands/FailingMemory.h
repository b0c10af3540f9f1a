// A program's memory that can be made to run out: once this is linked, every allocation of C++ goes through it.
#pragma once

namespace tests {

/// From now on every allocation fails, or none does.
void MakeMemoryShort(bool isShort);

}  // namespace tests
