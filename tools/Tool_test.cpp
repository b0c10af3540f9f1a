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

TEST_F(ToolTest, Verb_GetsTheArgumentsAfterItsName) {
    EXPECT_EQ(Run({u"echo", u"a b", u"", u"\u65E5"}), 0);
    EXPECT_EQ(out.str(), "<a b><><\xE6\x97\xA5>");
}

TEST_F(ToolTest, NoVerb_PrintsTheOverviewAsAnError) {
    EXPECT_EQ(Run({}), 2);
    EXPECT_THAT(err.str(), StartsWith("Usage: backproc VERB"));
    EXPECT_EQ(out.str(), "");
}

TEST_F(ToolTest, Help_ListsEveryVerbWithItsSummary) {
    EXPECT_EQ(Run({u"help"}), 0);
    EXPECT_THAT(out.str(), HasSubstr("\n  echo     Prints its arguments\n  misused  Wants a key\n"));
}

TEST_F(ToolTest, HelpOfAVerb_IsTheSameInBothForms) {
    EXPECT_EQ(Run({u"help", u"misused"}), 0);
    EXPECT_EQ(Run({u"misused", u"--help"}), 0);
    EXPECT_EQ(out.str(), "Usage: backproc misused KEY\nUsage: backproc misused KEY\n");
}

TEST_F(ToolTest, Version_IsPrinted) {
    for (const char16_t* asking : {u"version", u"--version", u"-v"}) EXPECT_EQ(Run({asking}), 0);
    EXPECT_EQ(out.str(), "backproc 1.2.3\nbackproc 1.2.3\nbackproc 1.2.3\n");
}

TEST_F(ToolTest, MistypedVerb_SuggestsTheNearest) {
    EXPECT_EQ(Run({u"ECHOO"}), 2);
    EXPECT_EQ(err.str(), "backproc: unknown command 'ECHOO'; did you mean 'echo'?\nTry 'backproc help'.\n");
}

TEST_F(ToolTest, MistypedOption_SuggestsTheNearestInTheHelp) {
    EXPECT_EQ(Run({u"dialog", u"--flag"}), 64);
    EXPECT_EQ(err.str(),
              "backproc dialog: unknown option '--flag'; did you mean '--flags'?\nTry 'backproc help dialog'.\n");
}

TEST_F(ToolTest, FailureOfADialog_HasItsOwnExitCode) {
    EXPECT_EQ(Run({u"dialog"}), 65);
    EXPECT_EQ(err.str(), "backproc dialog: no kernel\n");
}

TEST_F(ToolTest, OutputThatCannotBeWritten_IsAFailure) {
    out.setstate(std::ios::badbit);
    EXPECT_EQ(Run({u"echo", u"a"}), 1);
    EXPECT_EQ(err.str(), "backproc echo: cannot write all output (disk full or pipe closed)\n");
}

TEST_F(ToolTest, HelpOptionAfterArguments_ShowsTheHelp) {
    EXPECT_EQ(Run({u"misused", u"KEY", u"--help"}), 0);
    EXPECT_EQ(out.str(), "Usage: backproc misused KEY\n");
}

TEST_F(ToolTest, HelpAfterTheEndOfOptions_IsAnArgument) {
    EXPECT_EQ(Run({u"echo", u"--", u"--help"}), 0);
    EXPECT_EQ(out.str(), "<--><--help>");
}

TEST_F(ToolTest, Overview_HasOneTableOfExitCodes) {
    EXPECT_EQ(Run({u"help"}), 0);
    EXPECT_THAT(out.str(), HasSubstr("\nExit codes:\n  0      done"));
    EXPECT_THAT(out.str(), HasSubstr("\n  64     msgbox, query: the command line cannot be understood\n"));
}

TEST_F(ToolTest, UnknownVerb_IsNamedWithAHint) {
    EXPECT_EQ(Run({u"hosst"}), 2);
    EXPECT_EQ(err.str(), "backproc: unknown command 'hosst'\nTry 'backproc help'.\n");
}

TEST_F(ToolTest, HelpOfAnUnknownVerb_IsBadUsage) {
    EXPECT_EQ(Run({u"help", u"hosst"}), 2);
}

TEST_F(ToolTest, OptionWithoutAVerb_IsAnUnknownOption) {
    EXPECT_EQ(Run({u"--verbose"}), 2);
    EXPECT_EQ(err.str(), "backproc: unknown option '--verbose'\nTry 'backproc help'.\n");
}

TEST_F(ToolTest, SurplusArgumentOfHelpOrVersion_IsNamed) {
    EXPECT_EQ(Run({u"--help", u"echo", u"misused"}), 2);
    EXPECT_EQ(Run({u"--version", u"1"}), 2);
    EXPECT_EQ(err.str(),
              "backproc: unexpected argument 'misused'\nTry 'backproc help'.\n"
              "backproc: unexpected argument '1'\nTry 'backproc help'.\n");
}

TEST_F(ToolTest, HelpOptionBeforeArguments_ShowsTheHelp) {
    EXPECT_EQ(Run({u"misused", u"--help", u"KEY"}), 0);
    EXPECT_EQ(out.str(), "Usage: backproc misused KEY\n");
}

TEST_F(ToolTest, LackOfMemory_IsReported) {
    EXPECT_EQ(Run({u"huge"}), 1);
    EXPECT_EQ(err.str(), "backproc huge: out of memory\n");
}

TEST_F(ToolTest, BadUsageOfAVerb_PointsToItsHelp) {
    EXPECT_EQ(Run({u"misused"}), 2);
    EXPECT_EQ(err.str(), "backproc misused: KEY is missing\nTry 'backproc help misused'.\n");
}

TEST_F(ToolTest, FailingVerb_PrintsItsTextAndExitsWithOne) {
    EXPECT_EQ(Run({u"failing"}), 1);
    EXPECT_EQ(err.str(), "backproc failing: no kernel\n");
    EXPECT_EQ(out.str(), "");
}

}  // namespace
}  // namespace tools
