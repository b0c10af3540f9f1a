// Prepares texts for the tool's output. Each text is on one line, and paths stay unchanged.
#pragma once

#include <string>

#include "runtime/Text.h"

namespace tools {

/// Returns `text` in UTF-8 on one line. A control character becomes its picture (U+2400 and up): a line feed becomes
/// "␊", a carriage return "␍". All other characters stay unchanged, including backslashes.
std::string Display(runtime::StringView text);

/// Returns a name or value for use in a sentence. The text is in single quotes and is cut off after 200 UTF-16 units.
std::string Quoted(runtime::StringView text);

}  // namespace tools
