// Reads the header of a Windows program or library.
#pragma once

#include <string_view>

namespace runtime {

/// Returns 32 for an x86 program or library, and 64 for an x64 program or library. Returns 0 for another machine, and
/// if `bytes` is not a Windows program.
int BitsOfProgram(std::string_view bytes);

}  // namespace runtime
