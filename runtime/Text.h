// The runtime's strings: UTF-16 code units, as COM and the Windows functions have them. Any unit may occur,
// NUL and lone surrogates included; lengths and positions are counted in units ("characters").
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace runtime {

using String = std::u16string;
using StringView = std::u16string_view;

/// Removes leading and trailing blanks (U+0020 only; tabs and line ends stay).
String Trim(StringView text);
/// Removes trailing blanks (U+0020 only).
String RTrim(StringView text);

/// `text` with a blank for each NUL, because the platform's texts end at a NUL: what follows it is shown, too.
String NulsAsBlanks(StringView text);

/// UTF-8 of `text`; a lone surrogate becomes U+FFFD.
std::string ToUtf8(StringView text);
/// UTF-16 of `bytes`; what is not UTF-8 becomes U+FFFD, one for each offending byte.
String FromUtf8(std::string_view bytes);

/// UTF-16 of `bytes`; none for bytes that are not UTF-8.
std::optional<String> FromStrictUtf8(std::string_view bytes);

/// Widens plain ASCII text, for literals that are only known as char.
String FromAscii(std::string_view ascii);

}  // namespace runtime
