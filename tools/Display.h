// Texts as the tool prints them: always within one line, and paths untouched.
#pragma once

#include <string>

#include "runtime/Text.h"

namespace tools {

/// UTF-8 of `text` on one line: a control character is shown by its picture (U+2400 and up), so that a line feed
/// reads "␊" and a carriage return "␍". Everything else is unchanged, backslashes too.
std::string Display(runtime::StringView text);

/// Display of a name or value within a sentence: in single quotes, and cut off behind its first 200 characters.
std::string Quoted(runtime::StringView text);

}  // namespace tools
