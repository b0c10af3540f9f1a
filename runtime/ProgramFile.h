// Reads the header of a Windows program or library.
#pragma once

#include <string_view>

namespace runtime {

/// Returns 32 for an x86 program or library, and 64 for an x64 program or library. Returns 0 for all other machine
/// types, and if `bytes` is neither a Windows program nor a library.
int BitsOfProgram(std::string_view bytes);

}  // namespace runtime
