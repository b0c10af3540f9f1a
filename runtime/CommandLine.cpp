#include "runtime/CommandLine.h"

namespace runtime {
namespace {

bool IsGap(char16_t c) {
    return c == u' ' || c == u'\t';
}

/// True if the quote at `place` follows an odd number of backslashes.
bool IsEscaped(StringView text, std::size_t place) {
    const std::size_t last = text.substr(0, place).find_last_not_of(u'\\');
    const std::size_t backslashes = last == StringView::npos ? place : place - last - 1;
    return backslashes % 2 == 1;
}

/// Returns the text after the first word and the blanks and tabs that follow the word. A quote opens or closes a quoted
/// part only if `counts` returns true for its position.
template <typename Counts>
StringView WithoutFirstWord(StringView text, Counts&& counts) {
    std::size_t i = 0;
    for (bool quoted = false; i < text.size(); ++i) {
        if (text[i] == u'"' && counts(i)) quoted = !quoted;
        if (!quoted && IsGap(text[i])) break;
    }
    while (i < text.size() && IsGap(text[i])) ++i;
    return text.substr(i);
}

}  // namespace

StringView WithoutProgramName(StringView commandLine) {
    return WithoutFirstWord(commandLine, [](std::size_t) { return true; });
}

StringView WithoutFirstArgument(StringView arguments) {
    return WithoutFirstWord(arguments, [arguments](std::size_t quote) { return !IsEscaped(arguments, quote); });
}

}  // namespace runtime
