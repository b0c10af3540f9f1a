#include "tools/Tool.h"

#include <gmock/gmock.h>

#include <sstream>

#include "tools/Usage.h"

namespace tools {
namespace {

using ::testing::HasSubstr;
using ::testing::StartsWith;

int Echo(const Arguments& arguments, Console& console) {
    for (const String& argument : arguments) console.out << '<' << runtime::ToUtf8(argument) << '>';
    return kSuccess;
}

int Misused(const Arguments&, Console&) {
    throw UsageError("KEY is missing");
}

int Failing(const Arguments&, Console&) {
    throw std::runtime_error("no kernel");
}

int Dialog(const Arguments& arguments, Console&) {
    if (!arguments.empty()) throw UnknownOption(arguments[0]);
    throw std::runtime_error("no kernel");
}

int Huge(const Arguments&, Console&) {
    throw std::bad_alloc();
}

constexpr Verb kTestVerbs[] = {
    {"echo", "Prints its arguments", "Usage: backproc echo\n", Echo},
    {"misused", "Wants a key", "Usage: backproc misused KEY\n", Misused},
    {"failing", "Fails", "Usage: backproc failing\n", Failing},
    {"dialog", "Asks", "Usage: backproc dialog [--flags N]\n", Dialog, kDialogFailure, kDialogBadUsage},
    {"huge", "Wants too much", "Usage: backproc huge\n", Huge},
};

struct ToolTest : testing::Test {
    int Run(const Arguments& arguments) { return RunTool(kTestVerbs, "1.2.3", arguments, console); }

    std::istringstream in;
    std::ostringstream out;
    std::ostringstream err;
    Console console{in, out, err};
};

TEST_F(ToolTest, Verb_GetsTheArgumentsAfterTheVerbsName) {
    EXPECT_EQ(Run({u"echo", u"a b", u"", u"\u65E5"}), 0);
    EXPECT_EQ(out.str(), "<a b><><\xE6\x97\xA5>");
}

TEST_F(ToolTest, NoVerb_PrintsTheOverviewAsAnError) {
    EXPECT_EQ(Run({}), 2);
    EXPECT_THAT(err.str(), StartsWith("Usage: backproc VERB"));
    EXPECT_EQ(out.str(), "");
}

TEST_F(ToolTest, Help_ListsEveryVerbWithASummary) {
    EXPECT_EQ(Run({u"help"}), 0);
    EXPECT_THAT(out.str(), HasSubstr("\n  echo     Prints its arguments\n  misused  Wants a key\n"));
}

TEST_F(ToolTest, HelpOfAVerb_IsTheSameForEachHelpOption) {
    const Arguments forms[] = {{u"help", u"misused"},
                               {u"misused", u"--help"},
                               {u"misused", u"KEY", u"--help"},
                               {u"misused", u"--help", u"KEY"}};
    for (const Arguments& form : forms) {
        out.str("");
        EXPECT_EQ(Run(form), 0);
        EXPECT_EQ(out.str(), "Usage: backproc misused KEY\n");
    }
}

TEST_F(ToolTest, Failure_PrintsTheTextAndReturnsTheExitCode) {
    const struct {
        Arguments arguments;
        int code;
        std::string text;
    } failures[] = {
        {{u"hosst"}, 2, ": unknown command 'hosst'\nTry 'backproc help'.\n"},
        {{u"help", u"hosst"}, 2, ": unknown command 'hosst'\nTry 'backproc help'.\n"},
        {{u"ECHOO"}, 2, ": unknown command 'ECHOO'; did you mean 'echo'?\nTry 'backproc help'.\n"},
        {{u"--verbose"}, 2, ": unknown option '--verbose'\nTry 'backproc help'.\n"},
        {{u"--help", u"echo", u"misused"}, 2, ": unexpected argument 'misused'\nTry 'backproc help'.\n"},
        {{u"--version", u"1"}, 2, ": unexpected argument '1'\nTry 'backproc help'.\n"},
        {{u"misused"}, 2, " misused: KEY is missing\nTry 'backproc help misused'.\n"},
        {{u"failing"}, 1, " failing: no kernel\n"},
        {{u"huge"}, 1, " huge: out of memory\n"},
        {{u"dialog"}, 65, " dialog: no kernel\n"},
        {{u"dialog", u"--flag"},
         64,
         " dialog: unknown option '--flag'; did you mean '--flags'?\nTry 'backproc help dialog'.\n"},
    };
    for (const auto& failure : failures) {
        err.str("");
        EXPECT_EQ(Run(failure.arguments), failure.code) << failure.text;
        EXPECT_EQ(err.str(), "backproc" + failure.text);
        EXPECT_EQ(out.str(), "");
    }
}

TEST_F(ToolTest, Version_IsPrinted) {
    for (const char16_t* asking : {u"version", u"--version", u"-v"}) EXPECT_EQ(Run({asking}), 0);
    EXPECT_EQ(out.str(), "backproc 1.2.3\nbackproc 1.2.3\nbackproc 1.2.3\n");
}

TEST_F(ToolTest, OutputThatCannotBeWritten_IsAFailure) {
    out.setstate(std::ios::badbit);
    EXPECT_EQ(Run({u"echo", u"a"}), 1);
    EXPECT_EQ(err.str(), "backproc echo: cannot write all output (disk full or pipe closed)\n");
}

TEST_F(ToolTest, HelpAfterTheEndOfOptions_IsAnArgument) {
    EXPECT_EQ(Run({u"echo", u"--", u"--help"}), 0);
    EXPECT_EQ(out.str(), "<--><--help>");
}

TEST_F(ToolTest, Overview_ListsTheExitCodes) {
    EXPECT_EQ(Run({u"help"}), 0);
    EXPECT_THAT(out.str(), HasSubstr("\nExit codes:\n  0      done"));
    EXPECT_THAT(out.str(), HasSubstr("\n  64     msgbox, query: the command line cannot be understood\n"));
}

}  // namespace
}  // namespace tools
