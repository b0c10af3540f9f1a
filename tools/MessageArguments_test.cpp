#include "tools/MessageArguments.h"

#include <gtest/gtest.h>

namespace tools {
namespace {

TEST(MessageArguments, PromptAloneIsEnough) {
    EXPECT_EQ(ReadMessageArguments({u"Overwrite?"}), (MessageArguments{u"Overwrite?", 0, {}, {}}));
}

TEST(MessageArguments, OptionsComeBeforeThePromptInAnyOrder) {
    const MessageArguments both{u"Overwrite?", 264, u"T", {}};
    EXPECT_EQ(ReadMessageArguments({u"--flags", u"264", u"--title", u"T", u"Overwrite?"}), both);
    EXPECT_EQ(ReadMessageArguments({u"--title", u"T", u"--flags", u"0x108", u"Overwrite?"}), both);
}

TEST(MessageArguments, LanguageIsAFolder) {
    const MessageArguments german{u"Overwrite?", 0, {}, u"C:\\de"};
    EXPECT_EQ(ReadMessageArguments({u"--language", u"C:\\de", u"Overwrite?"}), german);
}

TEST(MessageArguments, TextsMayBeEmptyAndLookLikeAnything) {
    EXPECT_EQ(ReadMessageArguments({u"--title", u"", u""}), (MessageArguments{u"", 0, u"", {}}));
    EXPECT_EQ(ReadMessageArguments({u"--title", u"--flags", u"-x"}), (MessageArguments{u"-x", 0, u"--flags", {}}));
}

TEST(MessageArguments, TwoDashesEndTheOptions) {
    EXPECT_EQ(ReadMessageArguments({u"--", u"--flags"}), (MessageArguments{u"--flags", 0, std::nullopt}));
    EXPECT_EQ(ReadMessageArguments({u"--", u"a"}), (MessageArguments{u"a", 0, std::nullopt}));
    EXPECT_EQ(ReadMessageArguments({u"--", u"--"}), (MessageArguments{u"--", 0, std::nullopt}));
    EXPECT_EQ(ReadMessageArguments({u"--flags", u"8", u"--", u"--a\\nb"}),
              (MessageArguments{u"--a\r\nb", 8, std::nullopt}));
    EXPECT_EQ(ReadMessageArguments({u"--title", u"--", u"a"}), (MessageArguments{u"a", 0, u"--"}));
}

TEST(MessageArguments, BackslashWithNIsALineBreakInThePromptOnly) {
    EXPECT_EQ(ReadMessageArguments({u"a\\nb\\n\\nc\\"}).prompt, u"a\r\nb\r\n\r\nc\\");
    EXPECT_EQ(ReadMessageArguments({u"\\n"}).prompt, u"\r\n");
    EXPECT_EQ(ReadMessageArguments({u"--title", u"a\\nb", u"c"}).title, u"a\\nb");
}

TEST(MessageArguments, AnythingElseIsBadUsage) {
    const Arguments wrong[] = {{},
                               {u"a", u"b"},
                               {u"--flags", u"8"},
                               {u"--title", u"T"},
                               {u"--flags"},
                               {u"--flag", u"8", u"a"},
                               {u"a", u"--flags", u"8"},
                               {u"--"},
                               {u"--", u"--flags", u"8"},
                               {u"a", u"--"},
                               {u"--flags", u"8", u"a", u"b"}};
    for (const Arguments& arguments : wrong) EXPECT_THROW(ReadMessageArguments(arguments), UsageError);
}

TEST(MessageArguments, NumbersAreDecimalOrHexadecimal) {
    EXPECT_EQ(ReadNumber(u"0", "N"), 0);
    EXPECT_EQ(ReadNumber(u"-101", "N"), -101);
    EXPECT_EQ(ReadNumber(u"2147483647", "N"), 2147483647);
    EXPECT_EQ(ReadNumber(u"0x1f", "N"), 31);
    EXPECT_EQ(ReadNumber(u"0XFFFFFFF7", "N"), ~8);
}

TEST(MessageArguments, WhatIsNoNumberIsNamed) {
    for (const auto* text : {u"", u"x", u"8 ", u"+8", u"0x", u"0x-1", u"2147483648", u"0x100000000", u"１"}) {
        EXPECT_THROW(ReadNumber(text, "N"), UsageError) << runtime::ToUtf8(text);
    }
    try {
        ReadMessageArguments({u"--flags", u"many", u"a"});
        FAIL() << "read";
    } catch (const UsageError& error) {
        EXPECT_STREQ(error.what(), "--flags is not a 32-bit number: 'many'");
    }
}

}  // namespace
}  // namespace tools
