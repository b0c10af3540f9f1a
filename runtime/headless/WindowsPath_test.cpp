// Tests the path and wildcard rules of the file system in memory.
#include "runtime/headless/WindowsPath.h"

#include <gtest/gtest.h>

namespace runtime::headless {
namespace {

TEST(WindowsPath, FullPath_IsReturnedInUniformSpelling) {
    EXPECT_EQ(FullPath(u"D:\\cad\\sys", u"C:\\x"), u"D:\\cad\\sys");
    EXPECT_EQ(FullPath(u"d:\\", u"C:\\x"), u"D:\\");
    EXPECT_EQ(FullPath(u"d:/cad//sys/", u"C:\\x"), u"D:\\cad\\sys");
}

TEST(WindowsPath, RelativePath_StartsAtTheCurrentFolder) {
    EXPECT_EQ(FullPath(u"sys", u"C:\\cad"), u"C:\\cad\\sys");
    EXPECT_EQ(FullPath(u"sys", u"C:\\"), u"C:\\sys");
    EXPECT_EQ(FullPath(u"\\sys", u"C:\\cad"), u"C:\\sys");
    EXPECT_EQ(FullPath(u"c:sys", u"C:\\cad"), u"C:\\cad\\sys");
    EXPECT_EQ(FullPath(u"d:sys", u"C:\\cad"), u"D:\\sys");
    EXPECT_EQ(FullPath(u"c:", u"C:\\cad"), u"C:\\cad");
}

TEST(WindowsPath, Periods_AreResolvedWithinTheRoot) {
    EXPECT_EQ(FullPath(u".", u"C:\\cad"), u"C:\\cad");
    EXPECT_EQ(FullPath(u"..\\..\\..\\x", u"C:\\cad"), u"C:\\x");
    EXPECT_EQ(FullPath(u"C:\\a\\.\\b\\..\\c", u"C:\\"), u"C:\\a\\c");
    EXPECT_EQ(FullPath(u"C:\\a. \\b..", u"C:\\"), u"C:\\a\\b");
}

TEST(WindowsPath, Share_IsARoot) {
    EXPECT_EQ(FullPath(u"\\\\host\\cad\\sys\\..\\..\\x", u"C:\\"), u"\\\\host\\cad\\x");
    EXPECT_EQ(FullPath(u"\\\\host\\cad", u"C:\\"), u"\\\\host\\cad\\");
    EXPECT_EQ(FullPath(u"x", u"\\\\host\\cad\\sys"), u"\\\\host\\cad\\sys\\x");
    EXPECT_EQ(RootOf(u"\\\\host\\cad\\sys"), u"\\\\host\\cad\\");
}

TEST(WindowsPath, InvalidPath_HasNoFullPath) {
    EXPECT_EQ(FullPath(u"", u"C:\\"), std::nullopt);
    EXPECT_EQ(FullPath(u"C:\\a?", u"C:\\"), std::nullopt);
    EXPECT_EQ(FullPath(u"C:\\a:b", u"C:\\"), std::nullopt);
    EXPECT_EQ(FullPath(u"1:\\a", u"C:\\"), std::nullopt);
}

TEST(WindowsPath, ParentOfTheRootIsTheRoot) {
    EXPECT_EQ(ParentOf(u"C:\\a\\b"), u"C:\\a");
    EXPECT_EQ(ParentOf(u"C:\\a"), u"C:\\");
    EXPECT_EQ(ParentOf(u"C:\\"), u"C:\\");
    EXPECT_EQ(ParentOf(u"\\\\host\\cad\\sys"), u"\\\\host\\cad\\");
}

TEST(WindowsPath, Star_MatchesAnyCharacters) {
    EXPECT_TRUE(MatchesWildcards(u"board.sch", u"*"));
    EXPECT_TRUE(MatchesWildcards(u"board", u"*.*"));
    EXPECT_TRUE(MatchesWildcards(u"a.b.c", u"a*c"));
    EXPECT_TRUE(MatchesWildcards(u"aXbXc", u"a*X*c"));
    EXPECT_TRUE(MatchesWildcards(u"BOARD.SCH", u"board.*"));
    EXPECT_FALSE(MatchesWildcards(u"board.sch", u"*.pcb"));
    EXPECT_FALSE(MatchesWildcards(u"board.sch", u"oard*"));
}

TEST(WindowsPath, QuestionMark_MatchesOneCharacterOrTheEnd) {
    EXPECT_TRUE(MatchesWildcards(u"a1", u"a?"));
    EXPECT_TRUE(MatchesWildcards(u"a", u"a??"));
    EXPECT_FALSE(MatchesWildcards(u"ab12", u"ab?"));
    EXPECT_FALSE(MatchesWildcards(u"b", u"?b"));
}

}  // namespace
}  // namespace runtime::headless
