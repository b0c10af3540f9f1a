// Breaks a label's text into lines. A self-sizing label takes its size from these lines, and the back end paints these
// lines. The size and the painted text therefore always agree. The rules:
//
// - CR LF, LF and CR end a line. A line end at the end of the text adds an empty last line.
// - A tab becomes blanks up to the next multiple of 8 characters. NUL and other control characters become a blank each.
//   All other characters, including "&", are shown unchanged.
// - A line that is too wide is broken after its last word that fits. The blanks after this word are not shown.
// - Indentation is dropped if the word after it does not fit on the same line.
// - A word that is wider than the wrap width is broken between any two characters. Each line gets at least one
//   character. Surrogate pairs are not split.
#pragma once

#include <cstddef>
#include <limits>
#include <vector>

#include "runtime/Text.h"

namespace runtime {

/// Measures text in one font. The back end chooses the unit of length: twips or pixels.
class TextMeasure {
 public:
    /// The most characters that LayOut passes in one call. Because of this limit, LayOut takes time linear in the
    /// length of the text, even if measuring a long run takes more than linear time.
    static constexpr std::size_t kMaxRun = 1024;

    virtual ~TextMeasure() = default;
    /// Returns the width of `run`. The run contains no line ends or tabs.
    virtual int Width(StringView run) = 0;
    /// Returns the number of characters at the start of `run` that fit into `width`. `width` is at least 0. The result
    /// may split a surrogate pair.
    virtual std::size_t Fit(StringView run, int width) = 0;
    /// Returns the distance from one line to the next line.
    virtual int LineHeight() = 0;
};

/// With this wrap width, lines do not wrap. Only CR LF, LF and CR end a line.
inline constexpr int kNoWrap = std::numeric_limits<int>::max();

struct TextLine {
    /// Position in TextLayout::text.
    std::size_t offset = 0;
    std::size_t length = 0;
    int width = 0;
};

struct TextLayout {
    /// The text without line ends. Tabs and control characters are replaced by blanks.
    String text;
    /// Never empty, because an empty text has one empty line.
    std::vector<TextLine> lines;
    /// Width of the widest line. It is larger than the wrap width if a single character is wider, or if Width returns
    /// more than Fit assumed, as for slanted fonts.
    int width = 0;
    int height = 0;

    StringView Line(std::size_t index) const {
        return StringView(text).substr(lines[index].offset, lines[index].length);
    }
};

/// Breaks `text` into lines of at most `wrapWidth`. A `wrapWidth` below 0 means 0. Widths and heights are limited
/// to the largest int.
TextLayout LayOut(StringView text, int wrapWidth, TextMeasure& measure);

}  // namespace runtime
