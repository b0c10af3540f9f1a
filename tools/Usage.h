// What the tool says about a command line that it cannot understand: the same words for the same mistake, whatever the
// verb, and always with the argument that is wrong.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "tools/Verb.h"

namespace tools {

/// What ends the options: the argument behind it is none, whatever it looks like.
inline constexpr StringView kEndOfOptions = u"--";

UsageError Missing(std::string_view name);
UsageError Surplus(StringView argument);
UnknownOptionError UnknownOption(StringView option);

/// What stands behind the option at `place`; UsageError when that is the last argument.
const String& ValueOf(const Arguments& arguments, std::size_t place);

/// Throws Surplus for the first argument behind the `most` ones that are wanted.
void AtMost(std::size_t most, const Arguments& arguments);

/// The number that `text` is, decimal; UsageError, which calls it `name`, when it is none or outside the range.
std::int64_t ReadWhole(StringView text, std::string_view name, std::int64_t least, std::int64_t greatest);

/// The 32-bit number that `text` is, decimal with or without a sign, or hexadecimal after "0x" up to 0xFFFFFFFF;
/// UsageError, which calls it `name`, when it is none.
std::int32_t ReadNumber(StringView text, std::string_view name);

}  // namespace tools
