#include "trace/Line.h"

#include <gtest/gtest.h>

#include <chrono>
#include <random>
#include <stdexcept>
#include <string>
#include <type_traits>

#include "runtime/Error.h"
#include "tests/support/MemoryOutput.h"

namespace trace {
namespace {

using namespace std::chrono_literals;

// A copy could throw before the traced call is made.
static_assert(!std::is_copy_constructible_v<Line> && std::is_nothrow_move_constructible_v<Line>);

std::string Whole(const Line& line) {
    tests::MemoryOutput output;
    line.WriteTo(output);
    return output.lines.at(0);
}

/// Returns the original value of an escaped value.
String Unescaped(std::string_view value) {
    const String text = runtime::FromStrictUtf8(value).value();
    String read;
    for (std::size_t i = 0; i < text.size();) {
        if (!StringView(text).substr(i).starts_with(u"\\u{")) {
            read.push_back(text[i++]);
            continue;
        }
        const std::size_t end = text.find(u'}', i);
        const std::string digits = runtime::ToUtf8(text.substr(i + 3, end - i - 3));
        read.push_back(static_cast<char16_t>(std::stoul(digits, nullptr, 16)));
        i = end + 1;
    }
    return read;
}

std::string ValueIn(const std::string& line) {
    const std::size_t begin = line.find('[') + 1;
    return line.substr(begin, line.find(']') - begin);
}

std::string Value(StringView value) {
    return ValueIn(Whole(Line("event").Text("v", value)));
}

TEST(TraceLine, Values_AreInBracketsAfterTheEvent) {
    EXPECT_EQ(Whole(Line("E_SetString").Text("key", u"INITBP").Text("given", u"").Number("n", -3)),
              "E_SetString key=[INITBP] given=[] n=[-3]");
}

TEST(TraceLine, Time_HasThreeDecimals) {
    EXPECT_EQ(Whole(Line("e").Time(0us).Time(7us).Time(1ms).Time(12345678us)),
              "e ms=[0.000] ms=[0.007] ms=[1.000] ms=[12345.678]");
}

TEST(TraceLine, Hex_HasEightDigits) {
    EXPECT_EQ(Whole(Line("e").Hex("result", 0).Hex("result", 0x80020009)), "e result=[0x00000000] result=[0x80020009]");
}

TEST(TraceLine, Error_HasNumberAndDescriptionOrOnlyText) {
    EXPECT_EQ(Whole(Line("e").Error(runtime::Error(53))), "e error=[53] text=[File not found]");
    EXPECT_EQ(Whole(Line("e").Error(std::make_exception_ptr(runtime::Error(6)))), "e error=[6] text=[Overflow]");
    EXPECT_EQ(Whole(Line("e").Error(std::make_exception_ptr(7))), "e error=[unknown]");
    EXPECT_EQ(Whole(Line("e").Error(std::runtime_error("b\xC3\xA4\n"))), "e error=[b\xC3\xA4\\u{A}]");
}

TEST(TraceLine, Path_IsUnchanged) {
    EXPECT_EQ(Value(u"C:\\Orvane\\users\\u\\new"), "C:\\Orvane\\users\\u\\new");
}

TEST(TraceLine, LineEndOrBracket_IsEscaped) {
    EXPECT_EQ(Value(u"a\r\nb]c\td"), "a\\u{D}\\u{A}b\\u{5D}c\\u{9}d");
    EXPECT_EQ(Value(StringView(u"\0\x7F\x85", 3)), "\\u{0}\\u{7F}\\u{85}");
    EXPECT_EQ(Value(u"\u2028\u202E"), "\\u{2028}\\u{202E}");
}

TEST(TraceLine, LoneSurrogate_IsEscaped) {
    const char16_t lone[] = {0xD800, u'x', 0xDFFF, 0xD83D, 0xDE00, 0xDBFF, 0};
    EXPECT_EQ(Value(lone), "\\u{D800}x\\u{DFFF}\xF0\x9F\x98\x80\\u{DBFF}");
}

TEST(TraceLine, TextThatLooksLikeAnEscape_IsEscaped) {
    EXPECT_EQ(Value(u"\\u{41}"), "\\u{5C}u{41}");
    EXPECT_EQ(Unescaped(Value(u"\\u{41}")), u"\\u{41}");
}

TEST(TraceLine, LongValue_IsCutAndLengthIsWritten) {
    EXPECT_EQ(Value(String(256, u'x')), std::string(256, 'x'));
    EXPECT_EQ(Whole(Line("e").Text("v", String(257, u'x')).Text("w", u"y")),
              "e v=[" + std::string(256, 'x') + "] cut from 257 characters w=[y]");
}

TEST(TraceLine, Cut_SplitsNoSurrogatePair) {
    const String text = String(255, u'x') + u"\U0001F600y";
    EXPECT_EQ(Whole(Line("e").Text("v", text)), "e v=[" + std::string(255, 'x') + "] cut from 258 characters");
}

TEST(TraceLine, Beginning_WholeLengthIsWritten) {
    EXPECT_EQ(Whole(Line("e").Beginning("v", u"abc", 3, "bytes")), "e v=[abc]");
    EXPECT_EQ(Whole(Line("e").Beginning("v", String(300, u'x'), 5000, "bytes")),
              "e v=[" + std::string(256, 'x') + "] cut from 5000 bytes");
}

TEST(TraceLine, TenMillionCharacters_AreOneShortLine) {
    EXPECT_LT(Whole(Line("e").Text("v", String(10'000'000, u'\n'))).size(), 2000u);
}

TEST(TraceLine, AnyValue_CanBeReadBack) {
    // Most of these characters are relevant to the escape rules.
    constexpr StringView kTricky = u"\\u{}]5CD[\r\n\x7F\x85 Az\xD800\xDC00\xD83D\xDE00\u2028";
    std::mt19937 random(18);
    for (int i = 0; i < 2000; ++i) {
        String text(random() % 300, u' ');
        for (char16_t& unit : text) {
            unit = random() % 8 == 0 ? static_cast<char16_t>(random()) : kTricky[random() % kTricky.size()];
        }
        const std::string line = Whole(Line("e").Text("v", text));
        ASSERT_EQ(line.find_first_of(std::string("\r\n\0", 3)), std::string::npos);
        const String read = Unescaped(ValueIn(line));
        ASSERT_TRUE(text.starts_with(read));
        ASSERT_GE(read.size(), std::min<std::size_t>(text.size(), 255)) << line;
    }
}

TEST(TraceLine, NoMemory_OnlyTheFailedLineIsLost) {
    tests::MemoryOutput output;
    // No string can have this size, so the line fails as if memory were short.
    Line(std::string_view("", std::string().max_size() + 1)).Number("n", 1).WriteTo(output);
    Line("next").WriteTo(output);
    EXPECT_EQ(output.lost, 1);
    EXPECT_EQ(output.lines, std::vector<std::string>{"next"});
}

}  // namespace
}  // namespace trace
