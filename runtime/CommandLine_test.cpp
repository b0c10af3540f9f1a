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

TEST(CommandLine, QuotesInsideTheName_BlanksInThemDoNotEndIt) {
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

}  // namespace
}  // namespace runtime
