#include "tools/MessageArguments.h"

#include <gtest/gtest.h>

#include "tools/ComplaintOf_test.h"

namespace tools {
namespace {

TEST(MessageArguments, PromptAlone_IsAccepted) {
    EXPECT_EQ(ReadMessageArguments({u"Overwrite?"}), (MessageArguments{u"Overwrite?", 0, {}, {}}));
}

TEST(MessageArguments, OptionsBeforeThePrompt_MayHaveAnyOrder) {
    const MessageArguments both{u"Overwrite?", 264, u"T", {}};
    EXPECT_EQ(ReadMessageArguments({u"--flags", u"264", u"--title", u"T", u"Overwrite?"}), both);
    EXPECT_EQ(ReadMessageArguments({u"--title", u"T", u"--flags", u"0x108", u"Overwrite?"}), both);
}

TEST(MessageArguments, Language_TakesAFolder) {
    const MessageArguments german{u"Overwrite?", 0, {}, u"C:\\de"};
    EXPECT_EQ(ReadMessageArguments({u"--language", u"C:\\de", u"Overwrite?"}), german);
}

TEST(MessageArguments, EmptyTextsAndValuesLikeOptions_AreAccepted) {
    EXPECT_EQ(ReadMessageArguments({u"--title", u"", u""}), (MessageArguments{u"", 0, u"", {}}));
    EXPECT_EQ(ReadMessageArguments({u"--title", u"--flags", u"-x"}), (MessageArguments{u"-x", 0, u"--flags", {}}));
}

TEST(MessageArguments, TwoHyphens_EndTheOptions) {
    EXPECT_EQ(ReadMessageArguments({u"--", u"--flags"}), (MessageArguments{u"--flags", 0, std::nullopt}));
    EXPECT_EQ(ReadMessageArguments({u"--", u"a"}), (MessageArguments{u"a", 0, std::nullopt}));
    EXPECT_EQ(ReadMessageArguments({u"--", u"--"}), (MessageArguments{u"--", 0, std::nullopt}));
    EXPECT_EQ(ReadMessageArguments({u"--flags", u"8", u"--", u"--a\\nb"}),
              (MessageArguments{u"--a\r\nb", 8, std::nullopt}));
    EXPECT_EQ(ReadMessageArguments({u"--title", u"--", u"a"}), (MessageArguments{u"a", 0, u"--"}));
}

TEST(MessageArguments, BackslashN_IsALineBreakInThePromptOnly) {
    EXPECT_EQ(ReadMessageArguments({u"a\\nb\\n\\nc\\"}).prompt, u"a\r\nb\r\n\r\nc\\");
    EXPECT_EQ(ReadMessageArguments({u"\\n"}).prompt, u"\r\n");
    EXPECT_EQ(ReadMessageArguments({u"--title", u"a\\nb", u"c"}).title, u"a\\nb");
}

TEST(MessageArguments, WrongArguments_AreNamed) {
    EXPECT_EQ(ComplaintOf<ReadMessageArguments>({}), "missing argument PROMPT");
    EXPECT_EQ(ComplaintOf<ReadMessageArguments>({u"--"}), "missing argument PROMPT");
    EXPECT_EQ(ComplaintOf<ReadMessageArguments>({u"--flags", u"8"}), "missing argument PROMPT");
    EXPECT_EQ(ComplaintOf<ReadMessageArguments>({u"a", u"b"}), "unexpected argument 'b'");
    EXPECT_EQ(ComplaintOf<ReadMessageArguments>({u"a", u"--"}), "unexpected argument '--'");
    EXPECT_EQ(ComplaintOf<ReadMessageArguments>({u"a", u"--flags", u"8"}), "unexpected argument '--flags'");
    EXPECT_EQ(ComplaintOf<ReadMessageArguments>({u"--", u"--flags", u"8"}), "unexpected argument '8'");
    EXPECT_EQ(ComplaintOf<ReadMessageArguments>({u"--flags"}), "option '--flags' requires a value");
    EXPECT_EQ(ComplaintOf<ReadMessageArguments>({u"--flag", u"8", u"a"}), "unknown option '--flag'");
    EXPECT_EQ(ComplaintOf<ReadMessageArguments>({u"--flags", u"", u"a"}),
              "--flags must be a number from -2147483648 to 2147483647, or from 0x0 to 0xFFFFFFFF, not ''");
}

TEST(MessageArguments, TimeoutAndDefault_AreNumbers) {
    const MessageArguments limited{u"a", 0, {}, {}, 30, 7};
    EXPECT_EQ(ReadMessageArguments({u"--timeout", u"30", u"--default", u"7", u"a"}), limited);
    EXPECT_EQ(ReadMessageArguments({u"--default", u"7", u"--timeout", u"30", u"a"}), limited);
    EXPECT_EQ(ReadMessageArguments({u"--timeout", u"86400", u"a"}).timeout, 86400);
    EXPECT_EQ(ReadMessageArguments({u"--timeout", u"1", u"a"}).defaultAnswer, std::nullopt);
}

TEST(MessageArguments, WrongTimeoutsAndDefaults_AreNamed) {
    for (const char* const wrong : {"0", "-1", "86401", "99999999999999999999", "soon", "1.5", "0x10", "", " 1"}) {
        EXPECT_EQ(ComplaintOf<ReadMessageArguments>({u"--timeout", runtime::FromAscii(wrong), u"a"}),
                  std::string("--timeout must be a whole number from 1 to 86400, not '") + wrong + "'");
    }
    for (const char* const wrong : {"1", "9", "06", "yes", ""}) {
        EXPECT_EQ(
            ComplaintOf<ReadMessageArguments>({u"--timeout", u"1", u"--default", runtime::FromAscii(wrong), u"a"}),
            std::string("--default must be 6, 7, 8 or 2, not '") + wrong + "'");
    }
    EXPECT_EQ(ComplaintOf<ReadMessageArguments>({u"--default", u"6", u"a"}), "--default needs --timeout");
}

}  // namespace
}  // namespace tools
