#include "runtime/CommandLine.h"

#include <gtest/gtest.h>

namespace runtime {
namespace {

TEST(CommandLine, NameWithoutQuotesEndsAtTheFirstBlank) {
    EXPECT_EQ(WithoutProgramName(u"C:\\cad\\sch.exe /sys:C:\\x y"), u"/sys:C:\\x y");
}

TEST(CommandLine, QuotedName_MayContainBlanks) {
    EXPECT_EQ(WithoutProgramName(u"\"C:\\Program Files\\sch.exe\" \"/sys:C:\\x\""), u"\"/sys:C:\\x\"");
}

TEST(CommandLine, QuotedPartOfTheName_MayContainBlanks) {
    EXPECT_EQ(WithoutProgramName(u"C:\\\"Program Files\"\\sch.exe a b"), u"a b");
    EXPECT_EQ(WithoutProgramName(u"\"C:\\x\"sch.exe a"), u"a");
}

TEST(CommandLine, LeadingBlanksAreRemovedAndTrailingBlanksKept) {
    EXPECT_EQ(WithoutProgramName(u"sch.exe \t  a  b  "), u"a  b  ");
    EXPECT_EQ(WithoutProgramName(u"sch.exe\ta"), u"a");
}

TEST(CommandLine, NameAloneHasNoArguments) {
    EXPECT_EQ(WithoutProgramName(u"sch.exe"), u"");
    EXPECT_EQ(WithoutProgramName(u"\"C:\\sch.exe\""), u"");
    EXPECT_EQ(WithoutProgramName(u"\"C:\\sch.exe\"   "), u"");
    EXPECT_EQ(WithoutProgramName(u""), u"");
}

TEST(CommandLine, QuoteIsNotClosed_WholeTextIsTheName) {
    EXPECT_EQ(WithoutProgramName(u"\"C:\\sch.exe a b"), u"");
}

TEST(CommandLine, StartsWithABlank_NameIsEmpty) {
    EXPECT_EQ(WithoutProgramName(u"  a b"), u"a b");
}

TEST(CommandLine, FirstArgument_EndsAtTheFirstBlankOutsideQuotes) {
    EXPECT_EQ(WithoutFirstArgument(u"trace --  a.exe  \"/sys:C:\\x\""), u"--  a.exe  \"/sys:C:\\x\"");
    EXPECT_EQ(WithoutFirstArgument(u"\"C:\\my files\\t.txt\" -- a.exe"), u"-- a.exe");
    EXPECT_EQ(WithoutFirstArgument(u"--"), u"");
    EXPECT_EQ(WithoutFirstArgument(u""), u"");
}

TEST(CommandLine, FirstArgument_EscapedQuoteIsAnOrdinaryCharacter) {
    EXPECT_EQ(WithoutFirstArgument(u"a\\\"b c d"), u"c d");
    EXPECT_EQ(WithoutFirstArgument(u"\"a\\\" b\" c"), u"c");
    // Two backslashes mean one backslash of the argument. The quote after them closes the quoted part.
    EXPECT_EQ(WithoutFirstArgument(u"\"C:\\x\\\\\" c"), u"c");
    EXPECT_EQ(WithoutFirstArgument(u"\\\" c"), u"c");
}

}  // namespace
}  // namespace runtime
