// What the header of a Windows program or library says.
#pragma once

#include <string_view>

namespace runtime {

/// 32 or 64, the bits that the program with these bytes is made for; 0 if they are no program for Windows.
int BitsOfProgram(std::string_view bytes);

}  // namespace runtime
