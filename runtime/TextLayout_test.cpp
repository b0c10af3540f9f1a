// Tests line breaks and wrapping with a measure that counts its calls.
#include "runtime/TextLayout.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

namespace runtime {
namespace {

using testing::ElementsAre;

/// A 'W' has the width `wideWidth`. All other characters have the width 1. A line has the height `lineHeight`. Counts
/// the calls and the measured units.
class UnitMeasure : public TextMeasure {
 public:
    int Width(StringView run) override {
        Count(run);
        int width = overhang;
        for (const char16_t character : run) width += WidthOf(character);
        return width;
    }
    std::size_t Fit(StringView run, int width) override {
        Count(run);
        EXPECT_GE(width, 0);
        std::size_t fitting = 0;
        while (fitting < run.size() && WidthOf(run[fitting]) <= width) width -= WidthOf(run[fitting++]);
        return fitting;
    }
    int LineHeight() override { return lineHeight; }

    int wideWidth = 5;
    /// The difference between a run's width and the width that Fit assumes, as for slanted fonts.
    int overhang = 0;
    int lineHeight = 2;
    std::size_t calls = 0;
    std::size_t units = 0;
    std::size_t longestRun = 0;

 private:
    int WidthOf(char16_t character) const { return character == u'W' ? wideWidth : 1; }
    void Count(StringView run) {
        ++calls;
        units += run.size();
        longestRun = std::max(longestRun, run.size());
    }
};

std::vector<String> Lines(const TextLayout& layout) {
    std::vector<String> lines;
    for (std::size_t i = 0; i < layout.lines.size(); ++i) lines.emplace_back(layout.Line(i));
    return lines;
}

std::vector<String> Lines(StringView text, int wrapWidth = kNoWrap) {
    UnitMeasure measure;
    return Lines(LayOut(text, wrapWidth, measure));
}

TEST(TextLayout, EmptyText_IsOneEmptyLine) {
    UnitMeasure measure;
    const TextLayout layout = LayOut(u"", 10, measure);
    EXPECT_THAT(Lines(layout), ElementsAre(u""));
    EXPECT_EQ(layout.width, 0);
    EXPECT_EQ(layout.height, 2);
}

TEST(TextLayout, EveryLine_HasPositionAndWidth) {
    UnitMeasure measure;
    const TextLayout layout = LayOut(u"Save it?\r\nWell", kNoWrap, measure);
    EXPECT_EQ(layout.text, u"Save it?Well");
    ASSERT_EQ(layout.lines.size(), 2U);
    EXPECT_EQ(layout.lines[1].offset, 8U);
    EXPECT_EQ(layout.lines[1].length, 4U);
    EXPECT_EQ(layout.lines[1].width, 8);  // the W is 5 wide
    EXPECT_EQ(layout.width, 8);
    EXPECT_EQ(layout.height, 4);
}

TEST(TextLayout, BreaksAtThreeKindsOfLineEnd) {
    EXPECT_THAT(Lines(u"a\r\nb\nc\rd"), ElementsAre(u"a", u"b", u"c", u"d"));
    EXPECT_THAT(Lines(u"a\n\rb"), ElementsAre(u"a", u"", u"b"));
    EXPECT_THAT(Lines(u"\r\r\n"), ElementsAre(u"", u"", u""));
}

TEST(TextLayout, FinalLineEndMakesAnEmptyLastLine) {
    EXPECT_THAT(Lines(u"a\n"), ElementsAre(u"a", u""));
    EXPECT_THAT(Lines(u"a\r\n", 1), ElementsAre(u"a", u""));
    EXPECT_THAT(Lines(u"\r", 0), ElementsAre(u"", u""));
}

TEST(TextLayout, Tab_FillsToTheNextMultipleOfEight) {
    EXPECT_THAT(Lines(u"\tx"), ElementsAre(u"        x"));
    EXPECT_THAT(Lines(u"abc\tx"), ElementsAre(u"abc     x"));
    EXPECT_THAT(Lines(u"1234567\tx"), ElementsAre(u"1234567 x"));
    EXPECT_THAT(Lines(u"12345678\tx"), ElementsAre(u"12345678        x"));
    EXPECT_THAT(Lines(u"abc\nde\tx"), ElementsAre(u"abc", u"de      x"));
}

TEST(TextLayout, ControlCharactersBecomeBlanks) {
    using namespace std::string_view_literals;
    EXPECT_THAT(Lines(u"a\0b\x1F"
                      "c\x7F"
                      "d\x80"
                      "e\x9F"
                      "f\u00A0g"sv),
                ElementsAre(u"a b c d e f\u00A0g"));
}

TEST(TextLayout, OtherCharacters_AreUnchanged) {
    EXPECT_THAT(Lines(u"&Yes && <b>\\n\u65B0"), ElementsAre(u"&Yes && <b>\\n\u65B0"));
}

TEST(TextLayout, WrapsAtBlanks) {
    EXPECT_THAT(Lines(u"one two three", 7), ElementsAre(u"one two", u"three"));
    EXPECT_THAT(Lines(u"one two three", 8), ElementsAre(u"one two", u"three"));
    EXPECT_THAT(Lines(u"one two three", 6), ElementsAre(u"one", u"two", u"three"));
    EXPECT_THAT(Lines(u"one two three", 13), ElementsAre(u"one two three"));
}

TEST(TextLayout, WrapsEachParagraphSeparately) {
    EXPECT_THAT(Lines(u"one two\nthree four", 5), ElementsAre(u"one", u"two", u"three", u"four"));
}

TEST(TextLayout, BlanksAtABreak_AreNotShown) {
    UnitMeasure measure;
    const TextLayout layout = LayOut(u"ab    cd", 4, measure);
    EXPECT_THAT(Lines(layout), ElementsAre(u"ab", u"cd"));
    EXPECT_EQ(layout.width, 2);
    EXPECT_THAT(Lines(u"ab    ", 4), ElementsAre(u"ab"));
    EXPECT_THAT(Lines(u"          ", 4), ElementsAre(u""));
}

TEST(TextLayout, OtherBlanks_AreKept) {
    EXPECT_THAT(Lines(u"  ab  ", 6), ElementsAre(u"  ab  "));
    EXPECT_THAT(Lines(u"  ab cd", 4), ElementsAre(u"  ab", u"cd"));
}

TEST(TextLayout, IndentationWithoutRoomForTheWord_IsDropped) {
    EXPECT_THAT(Lines(u"   abc", 4), ElementsAre(u"abc"));
    EXPECT_THAT(Lines(u"  abcdef", 4), ElementsAre(u"abcd", u"ef"));
    EXPECT_THAT(Lines(u"a\n   bcd", 4), ElementsAre(u"a", u"bcd"));
}

TEST(TextLayout, BreaksAWordThatIsTooWide) {
    EXPECT_THAT(Lines(u"abcdefgh", 3), ElementsAre(u"abc", u"def", u"gh"));
    EXPECT_THAT(Lines(u"abcdef gh", 3), ElementsAre(u"abc", u"def", u"gh"));
    EXPECT_THAT(Lines(u"a bcdefg h", 3), ElementsAre(u"a", u"bcd", u"efg", u"h"));
    EXPECT_THAT(Lines(u"a bcdef g", 3), ElementsAre(u"a", u"bcd", u"ef", u"g"));
}

TEST(TextLayout, NoCharacterFits_LineHasOneCharacter) {
    for (const int width : {0, -1, std::numeric_limits<int>::min()}) {
        EXPECT_THAT(Lines(u"ab c ", width), ElementsAre(u"a", u"b", u"c")) << width;
    }
    EXPECT_THAT(Lines(u"aW  b", 2), ElementsAre(u"a", u"W", u"b"));
}

TEST(TextLayout, TooWideCharacter_SetsTheWidth) {
    UnitMeasure measure;
    EXPECT_EQ(LayOut(u"aW", 2, measure).width, 5);
}

TEST(TextLayout, SurrogatePairs_AreNotSplit) {
    EXPECT_THAT(Lines(u"a\U0001F600b", 2), ElementsAre(u"a", u"\U0001F600", u"b"));
    EXPECT_THAT(Lines(u"\U0001F600\U0001F601", 1), ElementsAre(u"\U0001F600", u"\U0001F601"));
    EXPECT_THAT(Lines(u"\U0001F600\U0001F601", 3), ElementsAre(u"\U0001F600", u"\U0001F601"));
}

TEST(TextLayout, LoneSurrogates_AreCharacters) {
    const String lows(3, char16_t{0xDC00});
    EXPECT_THAT(Lines(lows, 1), ElementsAre(u"\xDC00", u"\xDC00", u"\xDC00"));
}

TEST(TextLayout, MeasuredRuns_DoNotSplitSurrogatePairs) {
    // The text starts with one plain character. Therefore, a run from its start with an even number of units would
    // split a pair.
    String text = u"a";
    for (int i = 0; i < 2000; ++i) text += u"\U0001F600";
    class WholePairs : public UnitMeasure {
        int Width(StringView run) override {
            EXPECT_FALSE(run.front() >= 0xDC00 && run.front() < 0xE000);
            EXPECT_FALSE(run.back() >= 0xD800 && run.back() < 0xDC00);
            return UnitMeasure::Width(run);
        }
    } measure;
    EXPECT_EQ(LayOut(text, kNoWrap, measure).width, 4001);
    EXPECT_EQ(LayOut(text, 3000, measure).width, 2999);
}

TEST(TextLayout, RunIsWiderThanFitAssumes_TextIsStillWrapped) {
    UnitMeasure measure;
    measure.overhang = 1;
    EXPECT_THAT(Lines(LayOut(u"abcdefghij", 8, measure)), ElementsAre(u"abcdefgh", u"ij"));
    measure.wideWidth = 0;
    EXPECT_THAT(Lines(LayOut(u"WWWWWWWWWWa", std::numeric_limits<int>::min(), measure)),
                ElementsAre(u"WWWWWWWWWW", u"a"));
}

TEST(TextLayout, HugeSizes_AreLimitedToTheLargestInt) {
    UnitMeasure measure;
    measure.wideWidth = 2'000'000'000;
    measure.lineHeight = 2'000'000'000;
    const String wide = String(TextMeasure::kMaxRun - 1, u'a') + u"W" + String(1023, u'a') + u"W\n";
    const TextLayout layout = LayOut(wide, kNoWrap, measure);
    EXPECT_EQ(layout.width, std::numeric_limits<int>::max());
    EXPECT_EQ(layout.height, std::numeric_limits<int>::max());
}

constexpr std::size_t kMillion = 1'000'000;

TEST(TextLayoutCost, ManyCharacters_MeasuringIsLinear) {
    String words;
    while (words.size() < kMillion) words += u"a bcdefghi ";
    for (const String& text : {String(kMillion, u'a'), words}) {
        for (const int width : {1, 9, 100, 100'000, kNoWrap}) {
            UnitMeasure measure;
            LayOut(text, width, measure);
            EXPECT_LE(measure.calls, 2 * text.size()) << width;
            EXPECT_LE(measure.units, 9 * text.size()) << width;
            EXPECT_LE(measure.longestRun, TextMeasure::kMaxRun) << width;
        }
    }
}

TEST(TextLayoutCost, OneLine_IsMeasuredOnceInLongRuns) {
    UnitMeasure measure;
    EXPECT_EQ(LayOut(String(kMillion, u'a'), kNoWrap, measure).width, 1'000'000);
    EXPECT_EQ(measure.units, kMillion);
    EXPECT_LE(measure.calls, kMillion / 1000);
}

TEST(TextLayoutCost, ManyBlanksAtABreak_FewCharactersAreMeasured) {
    UnitMeasure measure;
    const TextLayout layout = LayOut(u"a" + String(kMillion, u' ') + u"b", 10, measure);
    EXPECT_THAT(Lines(layout), ElementsAre(u"a", u"b"));
    EXPECT_LE(measure.units, 40U);
}

TEST(TextLayoutCost, EmptyLines_AreNotMeasured) {
    UnitMeasure measure;
    const TextLayout layout = LayOut(String(kMillion, u'\n'), 10, measure);
    EXPECT_EQ(layout.lines.size(), kMillion + 1);
    EXPECT_EQ(layout.height, 2'000'002);
    EXPECT_EQ(measure.calls, 0U);
}

TEST(TextLayoutCost, TurnsTabsIntoEightMillionBlanks) {
    UnitMeasure measure;
    const TextLayout layout = LayOut(String(kMillion, u'\t') + u"x", 10, measure);
    EXPECT_EQ(layout.text.size(), 8 * kMillion + 1);
    EXPECT_THAT(Lines(layout), ElementsAre(u"x"));
    EXPECT_LE(measure.units, 40U);
}

}  // namespace
}  // namespace runtime
