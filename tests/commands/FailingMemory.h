// A program that links this file can make its memory allocations fail. Every C++ allocation uses it.
#pragma once

namespace tests {

/// Makes all later allocations fail, or succeed again.
void MakeMemoryShort(bool isShort);

}  // namespace tests
