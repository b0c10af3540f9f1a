#include "runtime/Text.h"

#include <gtest/gtest.h>

namespace runtime {
namespace {

TEST(Trim, RemovesBlanksAtBothEndsOnly) {
    EXPECT_EQ(Trim(u"  a b  "), u"a b");
    EXPECT_EQ(Trim(u"   "), u"");
    EXPECT_EQ(Trim(u""), u"");
}

TEST(Trim, KeepsTabsAndLineEnds) {
    EXPECT_EQ(Trim(u" \ta\r\n "), u"\ta\r\n");
    EXPECT_EQ(RTrim(u"a\t"), u"a\t");
}

TEST(RTrim, RemovesTrailingBlanksOnly) {
    EXPECT_EQ(RTrim(u" abc   "), u" abc");
    EXPECT_EQ(RTrim(u"   "), u"");
    EXPECT_EQ(RTrim(u""), u"");
}

TEST(NulsAsBlanks, KeepsTheTextAfterANul) {
    EXPECT_EQ(NulsAsBlanks(StringView(u"\0a\0\0b\0", 6)), u" a  b ");
    EXPECT_EQ(NulsAsBlanks(u""), u"");
}

TEST(Utf8, RoundTripsEveryLengthOfSequence) {
    const String text = u"a\u00E9\u65B0\U0001F600";
    EXPECT_EQ(ToUtf8(text), "a\xC3\xA9\xE6\x96\xB0\xF0\x9F\x98\x80");
    EXPECT_EQ(FromUtf8(ToUtf8(text)), text);
}

TEST(Utf8, ReplacesLoneSurrogates) {
    const String lone = {u'a', char16_t{0xD800}, u'b', char16_t{0xDC00}};
    EXPECT_EQ(ToUtf8(lone),
              "a\xEF\xBF\xBD"
              "b\xEF\xBF\xBD");
    EXPECT_EQ(ToUtf8(String(1, char16_t{0xD800})), "\xEF\xBF\xBD");
}

TEST(Utf8, ReplacesEachInvalidByte) {
    EXPECT_EQ(FromUtf8("\x80"), u"\uFFFD");
    EXPECT_EQ(FromUtf8("\xC3"), u"\uFFFD");
    EXPECT_EQ(FromUtf8("\xC0\x80"), u"\uFFFD\uFFFD");
    EXPECT_EQ(FromUtf8("\xED\xA0\x80"), u"\uFFFD\uFFFD\uFFFD");
    EXPECT_EQ(FromUtf8("\xF4\x90\x80\x80"), u"\uFFFD\uFFFD\uFFFD\uFFFD");
    EXPECT_EQ(FromUtf8("\xE6\x96"
                       "a"),
              u"\uFFFD\uFFFD"
              u"a");
}

TEST(Utf8, KeepsNul) {
    const String text(1, u'\0');
    EXPECT_EQ(ToUtf8(text), std::string(1, '\0'));
    EXPECT_EQ(FromUtf8(std::string(1, '\0')), text);
}

}  // namespace
}  // namespace runtime
