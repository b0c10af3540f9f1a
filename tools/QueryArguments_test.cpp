#include "tools/QueryArguments.h"

#include <gtest/gtest.h>

#include "tools/ComplaintOf_test.h"

namespace tools {
namespace {

QueryArguments Plain(std::int32_t kind, std::vector<String> values) {
    QueryArguments query;
    query.kind = kind;
    query.values = std::move(values);
    return query;
}

TEST(QueryArguments, KindAndInitialText_AreEnough) {
    EXPECT_EQ(ReadQueryArguments({u"--kind", u"1", u"abc"}), Plain(1, {u"abc"}));
    EXPECT_EQ(ReadQueryArguments({u"--kind", u"-7", u""}), Plain(-7, {u""}));
}

TEST(QueryArguments, TextsAfterTheInitialText_AreItems) {
    EXPECT_EQ(ReadQueryArguments({u"--kind", u"3", u"", u"A", u"B"}), Plain(3, {u"", u"A", u"B"}));
    EXPECT_EQ(ReadQueryArguments({u"--kind", u"3", u"x", u"--", u"--kind"}), Plain(3, {u"x", u"--", u"--kind"}));
}

TEST(QueryArguments, OptionsBeforeTheTexts_MayHaveAnyOrder) {
    QueryArguments all = Plain(5, {u"", u"A"});
    all.title = u"T";
    all.prompt = u"P";
    all.index = 0;
    all.buttonCaption = u"More";
    all.languageFolder = u"C:\\new";
    EXPECT_EQ(ReadQueryArguments({u"--language", u"C:\\new", u"--button", u"More", u"--index", u"0", u"--prompt", u"P",
                                  u"--title", u"T", u"--kind", u"5", u"", u"A"}),
              all);
}

TEST(QueryArguments, EmptyCaption_StillAddsAButton) {
    EXPECT_EQ(ReadQueryArguments({u"--kind", u"1", u"--button", u"", u"x"}).buttonCaption, u"");
    EXPECT_EQ(ReadQueryArguments({u"--kind", u"1", u"x"}).buttonCaption, std::nullopt);
}

TEST(QueryArguments, TwoHyphens_EndTheOptions) {
    EXPECT_EQ(ReadQueryArguments({u"--kind", u"1", u"--", u"--title"}), Plain(1, {u"--title"}));
    EXPECT_EQ(ReadQueryArguments({u"--kind", u"1", u"--", u"--"}), Plain(1, {u"--"}));
    EXPECT_EQ(ReadQueryArguments({u"--kind", u"1", u"-x"}), Plain(1, {u"-x"}));
}

TEST(QueryArguments, BackslashN_IsALineBreakExceptInTheFolder) {
    const auto query = ReadQueryArguments(
        {u"--kind", u"4", u"--prompt", u"a\\nb", u"--language", u"C:\\n", u"--button", u"c\\nd", u"\\n", u"e\\nf"});
    EXPECT_EQ(query.prompt, u"a\r\nb");
    EXPECT_EQ(query.buttonCaption, u"c\r\nd");
    EXPECT_EQ(query.values, (std::vector<String>{u"\r\n", u"e\r\nf"}));
    EXPECT_EQ(query.languageFolder, u"C:\\n");
}

TEST(QueryArguments, WrongArguments_AreNamed) {
    EXPECT_EQ(ComplaintOf<ReadQueryArguments>({}), "missing option --kind");
    EXPECT_EQ(ComplaintOf<ReadQueryArguments>({u"x"}), "missing option --kind");
    EXPECT_EQ(ComplaintOf<ReadQueryArguments>({u"--kind", u"1"}), "missing argument VALUE0");
    EXPECT_EQ(ComplaintOf<ReadQueryArguments>({u"--kind", u"1", u"--"}), "missing argument VALUE0");
    EXPECT_EQ(ComplaintOf<ReadQueryArguments>({u"--kind"}), "option '--kind' requires a value");
    EXPECT_EQ(ComplaintOf<ReadQueryArguments>({u"--kind", u"one", u"x"}),
              "--kind must be a number from -2147483648 to 2147483647, or from 0x0 to 0xFFFFFFFF, not 'one'");
    EXPECT_EQ(ComplaintOf<ReadQueryArguments>({u"--kind", u"3", u"--index", u"", u"x"}),
              "--index must be a number from -2147483648 to 2147483647, or from 0x0 to 0xFFFFFFFF, not ''");
    EXPECT_EQ(ComplaintOf<ReadQueryArguments>({u"--kinds", u"3", u"x"}), "unknown option '--kinds'");
    EXPECT_EQ(ComplaintOf<ReadQueryArguments>({u"--kinds"}), "unknown option '--kinds'");
}

TEST(QueryArguments, Default_IsATextOrAnItem) {
    QueryArguments query =
        ReadQueryArguments({u"--kind", u"1", u"--timeout", u"5", u"--default", u"R\\n1", u"x", u"A"});
    EXPECT_EQ(query.timeout, 5);
    EXPECT_EQ(query.defaultText, u"R\r\n1");
    EXPECT_EQ(query.defaultIndex, 0);
    for (const String kind : {u"3", u"5"}) {
        query = ReadQueryArguments({u"--kind", kind, u"--timeout", u"5", u"--default", u"B", u"B", u"A", u"B", u"B"});
        EXPECT_EQ(query.defaultIndex, 2);
    }
    EXPECT_EQ(ReadQueryArguments({u"--kind", u"1", u"--timeout", u"5", u"x"}).defaultIndex, -1);
}

TEST(QueryArguments, WrongTimeoutsAndDefaults_AreNamed) {
    EXPECT_EQ(ComplaintOf<ReadQueryArguments>({u"--kind", u"1", u"--timeout", u"0", u"x"}),
              "--timeout must be a whole number from 1 to 86400, not '0'");
    EXPECT_EQ(ComplaintOf<ReadQueryArguments>({u"--kind", u"1", u"--default", u"x", u"x"}),
              "--default needs --timeout");
    EXPECT_EQ(ComplaintOf<ReadQueryArguments>({u"--kind", u"3", u"--timeout", u"5", u"--default", u"x", u"x", u"A"}),
              "--default must be one of the items, not 'x'");
}

}  // namespace
}  // namespace tools
