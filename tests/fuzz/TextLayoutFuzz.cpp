// Fuzzes the text layout with any text, many wrap widths, and characters of different widths. The lines must contain
// the text in order, and each line must be as full as possible. Surrogate pairs must stay whole, and the work must be
// bounded.
#include <fuzzer/FuzzedDataProvider.h>

#include <algorithm>
#include <cstdint>
#include <vector>

#include "runtime/TextLayout.h"
#include "tests/fuzz/Require.h"

namespace {

using runtime::String;
using runtime::StringView;
using runtime::TextLayout;
using tests::Require;

bool IsHigh(char16_t unit) {
    return unit >= 0xD800 && unit <= 0xDBFF;
}
bool IsLow(char16_t unit) {
    return unit >= 0xDC00 && unit <= 0xDFFF;
}

/// Returns the number of code units of the first character.
std::size_t CharacterLength(StringView text) {
    return text.size() > 1 && IsHigh(text[0]) && IsLow(text[1]) ? 2 : 1;
}

/// The width of a surrogate pair differs from the sum of the widths of its halves. So the checks fail if the layout
/// measures half a pair.
int CharacterWidth(StringView text) {
    if (CharacterLength(text) == 2) return 9;
    if (IsHigh(text[0]) || IsLow(text[0])) return 40;
    return text[0] % 7;
}

int WidthOf(StringView text) {
    int width = 0;
    for (; !text.empty(); text.remove_prefix(CharacterLength(text))) width += CharacterWidth(text);
    return width;
}

bool Fits(StringView text, int width) {
    for (; !text.empty() && width >= 0; text.remove_prefix(CharacterLength(text))) width -= CharacterWidth(text);
    return width >= 0;
}

class MixedMeasure : public runtime::TextMeasure {
 public:
    /// If `splitsPairs` is true, the result of Fit may end inside a surrogate pair.
    explicit MixedMeasure(bool splitsPairs) : splitsPairs_(splitsPairs) {}

    int Width(StringView run) override {
        Count(run);
        return WidthOf(run);
    }
    std::size_t Fit(StringView run, int width) override {
        Count(run);
        Require(width >= 0, "LayOut passes no negative width to Fit");
        std::size_t fitting = 0;
        while (fitting < run.size()) {
            const StringView rest = run.substr(fitting);
            width -= CharacterWidth(rest);
            if (width < 0) return fitting + (splitsPairs_ && CharacterLength(rest) == 2 ? 1 : 0);
            fitting += CharacterLength(rest);
        }
        return fitting;
    }
    int LineHeight() override { return 3; }

    std::size_t Units() const { return units_; }
    std::size_t Calls() const { return calls_; }

 private:
    void Count(StringView run) {
        Require(!run.empty() && run.size() <= kMaxRun, "each measured run is not empty and has a bounded length");
        units_ += run.size();
        ++calls_;
    }

    const bool splitsPairs_;
    std::size_t units_ = 0;
    std::size_t calls_ = 0;
};

String TakeText(FuzzedDataProvider& data) {
    static constexpr char16_t kCommon[] = {u' ',  u' ',    u'a',   u'b',   u'c',   u'&',    u'8',   u'\n',
                                           u'\r', u'\t',   0x0000, 0x0085, 0xD83D, 0xDE00,  0xD83D, 0xDE00,
                                           u'g',  u'\x1F', u'~',   0x65B0, u'g',   u'\x7F', u'a',   u'-'};
    String text;
    while (data.remaining_bytes() > 0 && text.size() < 6'000) {
        const bool isCommon = data.ConsumeIntegralInRange(0, 15) > 0;
        const char16_t unit = isCommon ? data.PickValueInArray(kCommon) : data.ConsumeIntegral<char16_t>();
        const bool isLong = data.ConsumeIntegralInRange(0, 15) == 0;
        const std::size_t count = isLong ? data.ConsumeIntegralInRange<std::size_t>(1, 3000) : 1;
        text.append(count, unit);
        if (isLong && IsHigh(unit)) {
            for (std::size_t left = count; left > 0; --left) text += u"\U0001F600";
        }
    }
    return text;
}

/// Returns the paragraphs of `text` as the layout shows them. Uses a simple method with several passes.
std::vector<String> Paragraphs(String text) {
    for (std::size_t at = 0; (at = text.find(u"\r\n", at)) != String::npos;) text.erase(at, 1);
    std::replace(text.begin(), text.end(), u'\r', u'\n');
    std::vector<String> paragraphs(1);
    for (const char16_t unit : text) {
        if (unit == u'\n') {
            paragraphs.emplace_back();
            continue;
        }
        const bool isBlank = unit < u' ' || (unit > u'~' && unit < 0xA0);
        do {
            paragraphs.back() += isBlank ? u' ' : unit;
        } while (unit == u'\t' && paragraphs.back().size() % 8 != 0);
    }
    return paragraphs;
}

/// Returns the characters before the next blank.
StringView Word(StringView text) {
    return text.substr(0, std::min(text.find(u' '), text.size()));
}

/// Builds the lines of one paragraph word by word. This method is slow but follows the rules exactly.
std::vector<String> SlowLines(StringView rest, int wrapWidth) {
    std::vector<String> lines;
    while (true) {
        if (Fits(rest, wrapWidth)) {
            lines.emplace_back(rest);
            return lines;
        }
        // Add words while the words and the blanks before them fit.
        std::size_t taken = 0;
        while (taken < rest.size()) {
            const std::size_t word = std::min(rest.find_first_not_of(u' ', taken), rest.size());
            const std::size_t end = word + Word(rest.substr(word)).size();
            if (word == rest.size() || !Fits(rest.substr(0, end), wrapWidth)) break;
            taken = end;
        }
        if (taken == 0 && rest.front() != u' ') {
            int width = wrapWidth;
            do {
                width -= CharacterWidth(rest.substr(taken));
                taken += CharacterLength(rest.substr(taken));
            } while (taken < rest.size() && CharacterWidth(rest.substr(taken)) <= width);
        }
        const std::size_t next = std::min(rest.find_first_not_of(u' ', taken), rest.size());
        if (taken > 0 || next == rest.size()) lines.emplace_back(rest.substr(0, taken));
        rest.remove_prefix(next);
        if (rest.empty()) return lines;
    }
}

void CheckLine(StringView line, int recordedWidth, int wrapWidth) {
    Require(recordedWidth == WidthOf(line), "the recorded width is the width of the whole line");
    const bool isSingle = !line.empty() && CharacterLength(line) == line.size();
    Require(recordedWidth <= std::max(wrapWidth, 0) || isSingle, "no line is wider than the wrap width");
}

/// Checks the break between `line` and the next line of the same paragraph.
void CheckBreak(const TextLayout& layout, std::size_t line) {
    const runtime::TextLine& first = layout.lines[line];
    const runtime::TextLine& second = layout.lines[line + 1];
    if (first.offset + first.length != second.offset) return;
    Require(first.length > 0 && second.length > 0, "if a word is split, both lines contain a part of the word");
    const bool isSplit = IsHigh(layout.text[second.offset - 1]) && IsLow(layout.text[second.offset]);
    Require(!isSplit, "no surrogate pair is split");
}

void CheckOrder(const TextLayout& layout, const std::vector<String>& paragraphs) {
    String whole;
    for (const String& paragraph : paragraphs) whole += paragraph;
    Require(layout.text == whole, "the layout's text equals the paragraphs' text");
    std::size_t end = 0;
    for (const runtime::TextLine& line : layout.lines) {
        Require(line.offset >= end && line.length <= whole.size() - line.offset,
                "the lines are in order and within the text");
        Require(whole.find_first_not_of(u' ', end) >= line.offset, "the lines omit only blanks");
        end = line.offset + line.length;
    }
    Require(whole.find_first_not_of(u' ', end) == String::npos, "the lines reach the end of the text");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    FuzzedDataProvider data(bytes, size);
    const int widest = data.PickValueInArray({2, 40, 400, 20'000});
    const int wrapWidth = data.ConsumeBool() ? data.ConsumeIntegralInRange(-1, widest) : runtime::kNoWrap;
    MixedMeasure measure(data.ConsumeBool());
    const String text = TakeText(data);
    const TextLayout layout = runtime::LayOut(text, wrapWidth, measure);

    const std::vector<String> paragraphs = Paragraphs(text);
    CheckOrder(layout, paragraphs);
    std::size_t index = 0;
    int widestLine = 0;
    for (const String& paragraph : paragraphs) {
        const std::size_t first = index;
        for (const String& line : SlowLines(paragraph, std::max(wrapWidth, 0))) {
            Require(index < layout.lines.size() && layout.Line(index) == line,
                    "each line equals the line from SlowLines");
            CheckLine(layout.Line(index), layout.lines[index].width, wrapWidth);
            widestLine = std::max(widestLine, layout.lines[index].width);
            if (index > first) CheckBreak(layout, index - 1);
            ++index;
        }
    }
    Require(index == layout.lines.size(), "there are no more lines than SlowLines gives");
    Require(layout.width == widestLine, "the layout is as wide as its widest line");
    Require(layout.height == 3 * static_cast<int>(layout.lines.size()),
            "the layout's height is the sum of the line heights");
    Require(measure.Units() <= 16 * layout.text.size(), "the number of measured units is in proportion to the text");
    Require(measure.Calls() <= 4 * layout.text.size(), "the number of calls is in proportion to the text");
    return 0;
}
