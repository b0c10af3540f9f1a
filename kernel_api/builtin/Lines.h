// Splits the INI file and the language file into lines. The functions work on bytes and on decoded text.
#pragma once

#include <algorithm>
#include <cstddef>

namespace kernel_api::builtin {

/// Removes the first line and its line end (CR, LF or CR LF) from `text`. Returns the line without its line end.
template <typename View>
View TakeLine(View& text) {
    static constexpr typename View::value_type kLineEnd[] = {'\r', '\n', 0};
    const std::size_t end = std::min(text.find_first_of(kLineEnd), text.size());
    const View line = text.substr(0, end);
    const std::size_t ending = text.substr(end).starts_with(kLineEnd) ? 2 : 1;
    text.remove_prefix(std::min(end + ending, text.size()));
    return line;
}

/// Returns `text` without blanks and tabs at both ends.
template <typename View>
View Trimmed(View text) {
    static constexpr typename View::value_type kGaps[] = {' ', '\t', 0};
    const std::size_t first = text.find_first_not_of(kGaps);
    if (first == View::npos) return {};
    return text.substr(first, text.find_last_not_of(kGaps) - first + 1);
}

}  // namespace kernel_api::builtin
