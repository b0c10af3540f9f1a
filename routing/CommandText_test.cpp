#include "routing/CommandText.h"

#include <gtest/gtest.h>

namespace routing {
namespace {

TEST(ShellCommand, JoinsVerbModeAndCommandLine) {
    EXPECT_EQ(ShellCommand(1, u"X"), u"SHELL,1,X");
}

TEST(ShellCommand, EmptyCommandLine_EndsInAComma) {
    EXPECT_EQ(ShellCommand(0, u""), u"SHELL,0,");
}

TEST(ShellCommand, NegativeModeAndCommas_AreUnchanged) {
    EXPECT_EQ(ShellCommand(-3, u"a,b"), u"SHELL,-3,a,b");
    EXPECT_EQ(ShellCommand(-32768, u" \"q\" "), u"SHELL,-32768, \"q\" ");
    EXPECT_EQ(ShellCommand(32767, u""), u"SHELL,32767,");
}

}  // namespace
}  // namespace routing
