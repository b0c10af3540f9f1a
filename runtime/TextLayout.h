// Breaks a label's text into the lines it is shown in. A self-sizing label takes its size from here and a back end
// paints exactly these lines, so that measuring and painting cannot disagree.
//
// Line ends are CR LF, LF and CR; one at the very end makes an empty last line. A tab fills up with blanks to the next
// multiple of 8 characters; NUL and the other control characters become a blank. Everything else is shown as it is,
// "&" included.
// A line that is too wide breaks at its last run of blanks that helps, and none of these blanks is shown. Indentation
// that leaves no room for the word behind it is dropped. A word wider than the wrap width breaks between any two
// characters, with at least one on each line; surrogate pairs stay whole.
#pragma once

#include <cstddef>
#include <limits>
#include <vector>

#include "runtime/Text.h"

namespace runtime {

/// Measures text in one font. The back end chooses the unit of length: twips or pixels.
class TextMeasure {
 public:
    /// The most characters that LayOut passes in one call; with that, the time for a text is linear in its length
    /// even where the time for a run is more than linear.
    static constexpr std::size_t kMaxRun = 1024;

    virtual ~TextMeasure() = default;
    /// Width of `run`, which has neither line ends nor tabs.
    virtual int Width(StringView run) = 0;
    /// How many characters from the start of `run` fit into `width` (0 or more); may end within a surrogate pair.
    virtual std::size_t Fit(StringView run, int width) = 0;
    /// Distance from one line to the next.
    virtual int LineHeight() = 0;
};

/// The wrap width that breaks at line ends only.
inline constexpr int kNoWrap = std::numeric_limits<int>::max();

struct TextLine {
    /// Place in TextLayout::text.
    std::size_t offset = 0;
    std::size_t length = 0;
    int width = 0;
};

struct TextLayout {
    /// The text as shown, without line ends.
    String text;
    /// Never empty: no text is one empty line.
    std::vector<TextLine> lines;
    /// Of the widest line; at most the wrap width, unless a single character is wider.
    int width = 0;
    int height = 0;

    StringView Line(std::size_t index) const {
        return StringView(text).substr(lines[index].offset, lines[index].length);
    }
};

/// A `wrapWidth` of 0 or less shows one character a line. Widths and heights beyond the range of int stay at its end.
TextLayout LayOut(StringView text, int wrapWidth, TextMeasure& measure);

}  // namespace runtime
