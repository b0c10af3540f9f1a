// The runtime's strings. They consist of UTF-16 units, as in COM and in the Windows functions. A string may contain any
// unit, including NUL and lone surrogates. Lengths and positions count units. "Character" means a unit.
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

/// Returns `text` with each NUL replaced by a blank. Without this, Windows would cut the shown text at the first NUL.
String NulsAsBlanks(StringView text);

/// Returns `text` in UTF-8. A lone surrogate becomes U+FFFD.
std::string ToUtf8(StringView text);
/// Returns `bytes` in UTF-16. Each byte that is not valid UTF-8 becomes U+FFFD.
String FromUtf8(std::string_view bytes);

/// Returns `bytes` in UTF-16; no value if `bytes` is not valid UTF-8.
std::optional<String> FromStrictUtf8(std::string_view bytes);

/// Converts ASCII text. Use it for text that exists only as char.
String FromAscii(std::string_view ascii);

}  // namespace runtime
