// Converts letter case without Windows. Covers the ASCII and Latin-1 letters and the basic Greek and Cyrillic letters,
// if they have exactly one counterpart.
#pragma once

#include "runtime/Text.h"

namespace runtime::headless {

char16_t UpperCase(char16_t c);
char16_t LowerCase(char16_t c);

String UpperCase(StringView text);
String LowerCase(StringView text);

}  // namespace runtime::headless
