// Texts as the tool prints them: each on one line, with paths unchanged.
#pragma once

#include <string>

#include "runtime/Text.h"

namespace tools {

/// Returns `text` in UTF-8 on one line. A control character becomes its picture (U+2400 and up): a line feed becomes
/// "␊", a carriage return "␍". All other characters stay unchanged, including backslashes.
std::string Display(runtime::StringView text);

/// Display of a name or value inside a sentence: in single quotes, cut off after 200 characters.
std::string Quoted(runtime::StringView text);

}  // namespace tools
