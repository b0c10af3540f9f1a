#include "tools/Display.h"

#include <gtest/gtest.h>

namespace tools {
namespace {

TEST(Display, PathsAndLettersBeyondAscii_StayUnchanged) {
    EXPECT_EQ(Display(u"C:\\new\\tab [x] \u00E9\u65E5"), "C:\\new\\tab [x] \xC3\xA9\xE6\x97\xA5");
}

TEST(Display, LineEnds_BecomePictures) {
    EXPECT_EQ(Display(u"a\r\nb"),
              "a\xE2\x90\x8D\xE2\x90\x8A"
              "b");
}

TEST(Display, ControlCharacters_BecomePictures) {
    using namespace std::string_view_literals;
    EXPECT_EQ(Display(u"\0\x1F\x7F "sv), "\xE2\x90\x80\xE2\x90\x9F\xE2\x90\xA1 ");
}

TEST(Display, EmptyText_StaysEmpty) {
    EXPECT_EQ(Display(u""), "");
}

TEST(Display, Quoted_AddsSingleQuotes) {
    EXPECT_EQ(Quoted(u""), "''");
    EXPECT_EQ(Quoted(u"a\tb"),
              "'a\xE2\x90\x89"
              "b'");
}

TEST(Display, Quoted_CutsOffAfter200Characters) {
    const runtime::String longest(200, u'x');
    EXPECT_EQ(Quoted(longest), "'" + std::string(200, 'x') + "'");
    EXPECT_EQ(Quoted(longest + u"y"), "'" + std::string(200, 'x') + "\xE2\x80\xA6'");
}

TEST(Display, Quoted_DoesNotSplitASurrogatePair) {
    const runtime::String text = runtime::String(199, u'x') + u"\U0001F600";
    EXPECT_EQ(Quoted(text), "'" + std::string(199, 'x') + "\xE2\x80\xA6'");
}

}  // namespace
}  // namespace tools
