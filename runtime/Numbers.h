// Numbers as text and text as numbers, and rounding to integers, by the rules of the classic BASIC runtime.
#pragma once

#include <cstdint>

#include "runtime/Text.h"

namespace runtime {

/// Decimal text with a leading blank in place of the sign for a non-negative number: " 0", "-3".
String Str(std::int32_t number);

/// The number at the start of `text`. Blanks, tabs and line feeds are skipped wherever they stand; "&H" and "&O"
/// start hexadecimal and octal numbers; exponents are written with E or D; the period is the only decimal mark.
/// Stops at the first character that cannot continue the number; 0 when there is none. Error 6 on overflow.
double Val(StringView text);

/// `number` rounded to the nearest integer, halves to even. Error 6 outside the 32-bit range, and for NaN.
std::int32_t ToInt32(double number);

}  // namespace runtime
