// Makes the errors for a wrong command line. All verbs use the same words for the same mistake. Each error names the
// wrong or missing argument.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "tools/Verb.h"

namespace tools {

/// Ends the options. Arguments after "--" are never options.
inline constexpr StringView kEndOfOptions = u"--";

UsageError Missing(std::string_view name);
UsageError UnexpectedArgument(StringView argument);
UnknownOptionError UnknownOption(StringView option);

/// Returns the argument after the option at `place`. Throws UsageError if the option is the last argument.
const String& ValueOf(const Arguments& arguments, std::size_t place);

/// Throws UnexpectedArgument if there are more than `max` arguments. The error names argument `max` + 1.
void RequireAtMost(std::size_t max, const Arguments& arguments);

/// Parses a decimal number. Throws a UsageError that contains `name` if `text` is not a number or is out of range.
std::int64_t ReadWhole(StringView text, std::string_view name, std::int64_t least, std::int64_t greatest);

/// Parses a 32-bit number: decimal digits, with '-' for a negative number, or "0x" and hexadecimal digits up to
/// 0xFFFFFFFF. Throws a UsageError that contains `name` if `text` is not such a number.
std::int32_t ReadNumber(StringView text, std::string_view name);

}  // namespace tools
