#include "runtime/TextLayout.h"

#include <algorithm>
#include <cstdint>
#include <utility>

namespace runtime {
namespace {

constexpr std::size_t kTabStop = 8;
/// The number of characters that Fill measures first. Fill doubles the number while the characters fit. Therefore a
/// short line takes little time.
constexpr std::size_t kFirstOffer = 8;

bool IsControl(char16_t character) {
    return character < 0x20 || (character >= 0x7F && character <= 0x9F);
}

bool IsPair(char16_t first, char16_t second) {
    return (first & 0xFC00) == 0xD800 && (second & 0xFC00) == 0xDC00;
}

int Clamp(std::int64_t length) {
    return static_cast<int>(std::min<std::int64_t>(length, std::numeric_limits<int>::max()));
}

int Add(int a, int b) {
    return Clamp(std::int64_t{a} + b);
}

/// Returns the first characters of `text`, at most `limit` (2 or more). Does not split a surrogate pair.
StringView Start(StringView text, std::size_t limit) {
    if (text.size() <= limit) return text;
    return text.substr(0, IsPair(text[limit - 1], text[limit]) ? limit - 1 : limit);
}

class LineBreaker {
 public:
    LineBreaker(int wrapWidth, TextMeasure& measure) : wrapWidth_(std::max(wrapWidth, 0)), measure_(measure) {}

    TextLayout Run(StringView text) {
        layout_.text.reserve(text.size());
        for (std::size_t i = 0; i < text.size(); ++i) {
            if (text[i] == u'\r' && i + 1 < text.size() && text[i + 1] == u'\n') ++i;
            if (text[i] == u'\n' || text[i] == u'\r') {
                EndParagraph();
            } else {
                Append(text[i]);
            }
        }
        EndParagraph();
        layout_.height = Clamp(static_cast<std::int64_t>(layout_.lines.size()) * measure_.LineHeight());
        return std::move(layout_);
    }

 private:
    struct Part {
        std::size_t length = 0;
        int width = 0;
    };

    void Append(char16_t character) {
        if (character == u'\t') {
            const std::size_t column = layout_.text.size() - paragraph_;
            layout_.text.append(kTabStop - column % kTabStop, u' ');
        } else {
            layout_.text += IsControl(character) ? u' ' : character;
        }
    }

    void EndParagraph() {
        const StringView rest = StringView(layout_.text).substr(paragraph_);
        if (wrapWidth_ == kNoWrap) {
            AddLine(rest, rest.size(), WidthOf(rest));
        } else {
            Wrap(rest);
        }
        paragraph_ = layout_.text.size();
    }

    void Wrap(StringView rest) {
        do {
            const Part filled = Fill(rest);
            if (filled.length == rest.size()) {
                AddLine(rest, filled.length, filled.width);
                return;
            }
            const std::size_t blank = rest.substr(0, filled.length + 1).rfind(u' ');
            if (blank == StringView::npos) {
                rest.remove_prefix(BreakWord(rest, filled));
            } else {
                rest.remove_prefix(BreakAtBlanks(rest, blank));
            }
        } while (!rest.empty());
    }

    /// Returns the part at the start of `rest` that fits on a line.
    Part Fill(StringView rest) {
        Part filled;
        for (std::size_t limit = kFirstOffer; filled.length < rest.size();
             limit = std::min(2 * limit, TextMeasure::kMaxRun)) {
            const StringView offer = Start(rest.substr(filled.length), limit);
            const StringView fitting = FittingStart(offer, std::max(wrapWidth_ - filled.width, 0));
            if (!fitting.empty()) filled.width = Add(filled.width, measure_.Width(fitting));
            filled.length += fitting.size();
            if (fitting.size() < offer.size()) break;
        }
        return filled;
    }

    StringView FittingStart(StringView offer, int width) {
        const std::size_t length = std::min(measure_.Fit(offer, width), offer.size());
        if (length == 0 || length == offer.size()) return offer.substr(0, length);
        return offer.substr(0, IsPair(offer[length - 1], offer[length]) ? length - 1 : length);
    }

    /// BreakWord and BreakAtBlanks return the number of characters that they have processed.
    std::size_t BreakWord(StringView rest, Part filled) {
        if (filled.length == 0) {
            filled.length = rest.size() > 1 && IsPair(rest[0], rest[1]) ? 2 : 1;
            filled.width = measure_.Width(rest.substr(0, filled.length));
        }
        AddLine(rest, filled.length, filled.width);
        // Blanks may follow a character that was too wide. The next line must not start with these blanks.
        return std::min(rest.find_first_not_of(u' ', filled.length), rest.size());
    }

    std::size_t BreakAtBlanks(StringView rest, std::size_t blank) {
        const std::size_t next = std::min(rest.find_first_not_of(u' ', blank), rest.size());
        const std::size_t last = rest.find_last_not_of(u' ', blank);
        const std::size_t length = last == StringView::npos ? 0 : last + 1;
        // Indentation before a word does not become a separate line.
        if (length > 0 || next == rest.size()) AddLine(rest, length, WidthOf(rest.substr(0, length)));
        return next;
    }

    int WidthOf(StringView text) {
        int width = 0;
        while (!text.empty()) {
            const StringView run = Start(text, TextMeasure::kMaxRun);
            width = Add(width, measure_.Width(run));
            text.remove_prefix(run.size());
        }
        return width;
    }

    void AddLine(StringView rest, std::size_t length, int width) {
        const std::size_t offset = layout_.text.size() - rest.size();
        layout_.lines.push_back({offset, length, width});
        layout_.width = std::max(layout_.width, width);
    }

    const int wrapWidth_;
    TextMeasure& measure_;
    TextLayout layout_;
    /// Position in layout_.text after the last line end.
    std::size_t paragraph_ = 0;
};

}  // namespace

TextLayout LayOut(StringView text, int wrapWidth, TextMeasure& measure) {
    return LineBreaker(wrapWidth, measure).Run(text);
}

}  // namespace runtime
