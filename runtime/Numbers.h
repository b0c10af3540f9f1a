// Converts between numbers and text, and rounds to integers, by the rules of the classic BASIC runtime.
#pragma once

#include <cstdint>

#include "runtime/Text.h"

namespace runtime {

/// Returns `number` as decimal text. A non-negative number has a leading blank in place of the sign: " 0", "-3".
String Str(std::int32_t number);

/// Returns the number at the start of `text`; 0 if there is no number. Error 6 on overflow.
/// - Blanks, tabs and line feeds are ignored everywhere.
/// - "&H" starts a hexadecimal number. "&O" or a single "&" starts an octal number.
/// - An exponent starts with E or D.
/// - Each character of `decimalMarks` is a decimal mark.
/// - Conversion ends at the first character that cannot continue the number, for example at a second decimal mark.
double Val(StringView text, StringView decimalMarks = u".");

/// Returns `number` rounded to the nearest integer, halves to even. Error 6 outside the 32-bit range and for NaN.
std::int32_t ToInt32(double number);

}  // namespace runtime
