// How the INI file and the language file are cut into lines, bytes as well as decoded text.
#pragma once

#include <algorithm>
#include <cstddef>

namespace kernel_api::builtin {

/// Takes the first line off `text`, with its end: CR, LF or both. Returns it without the end.
template <typename View>
View TakeLine(View& text) {
    static constexpr typename View::value_type kLineEnd[] = {'\r', '\n', 0};
    const std::size_t end = std::min(text.find_first_of(kLineEnd), text.size());
    const View line = text.substr(0, end);
    const std::size_t ending = text.substr(end).starts_with(kLineEnd) ? 2 : 1;
    text.remove_prefix(std::min(end + ending, text.size()));
    return line;
}

/// `text` without the blanks and tabs at its ends.
template <typename View>
View Trimmed(View text) {
    static constexpr typename View::value_type kGaps[] = {' ', '\t', 0};
    const std::size_t first = text.find_first_not_of(kGaps);
    if (first == View::npos) return {};
    return text.substr(first, text.find_last_not_of(kGaps) - first + 1);
}

}  // namespace kernel_api::builtin
