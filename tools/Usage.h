// The errors for a command line that the tool cannot understand: the same words for the same mistake, whatever the
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
UsageError UnexpectedArgument(StringView argument);
UnknownOptionError UnknownOption(StringView option);

/// The argument after the option at `place`; UsageError when the option is the last argument.
const String& ValueOf(const Arguments& arguments, std::size_t place);

/// Throws UnexpectedArgument for the first argument after `max` arguments.
void RequireAtMost(std::size_t max, const Arguments& arguments);

/// The number that `text` is, decimal; UsageError, which calls it `name`, when it is none or outside the range.
std::int64_t ReadWhole(StringView text, std::string_view name, std::int64_t least, std::int64_t greatest);

/// The 32-bit number that `text` is, decimal with or without a sign, or hexadecimal after "0x" up to 0xFFFFFFFF;
/// UsageError, which calls it `name`, when it is none.
std::int32_t ReadNumber(StringView text, std::string_view name);

}  // namespace tools
