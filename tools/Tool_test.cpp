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

TEST_F(ToolTest, hands_the_verb_what_follows_it) {
    EXPECT_EQ(Run({u"echo", u"a b", u"", u"\u65E5"}), 0);
    EXPECT_EQ(out.str(), "<a b><><\xE6\x97\xA5>");
}

TEST_F(ToolTest, without_a_verb_shows_the_overview_as_an_error) {
    EXPECT_EQ(Run({}), 2);
    EXPECT_THAT(err.str(), StartsWith("Usage: backproc VERB"));
    EXPECT_EQ(out.str(), "");
}

TEST_F(ToolTest, help_lists_every_verb_with_its_summary) {
    EXPECT_EQ(Run({u"help"}), 0);
    EXPECT_THAT(out.str(), HasSubstr("\n  echo     Prints its arguments\n  misused  Wants a key\n"));
}

TEST_F(ToolTest, help_of_a_verb_is_the_same_in_both_forms) {
    EXPECT_EQ(Run({u"help", u"misused"}), 0);
    EXPECT_EQ(Run({u"misused", u"--help"}), 0);
    EXPECT_EQ(out.str(), "Usage: backproc misused KEY\nUsage: backproc misused KEY\n");
}

TEST_F(ToolTest, tells_its_version) {
    for (const char16_t* asking : {u"version", u"--version", u"-v"}) EXPECT_EQ(Run({asking}), 0);
    EXPECT_EQ(out.str(), "backproc 1.2.3\nbackproc 1.2.3\nbackproc 1.2.3\n");
}

TEST_F(ToolTest, a_mistyped_verb_is_answered_with_the_nearest) {
    EXPECT_EQ(Run({u"ECHOO"}), 2);
    EXPECT_EQ(err.str(), "backproc: unknown command 'ECHOO'; did you mean 'echo'?\nTry 'backproc help'.\n");
}

TEST_F(ToolTest, a_mistyped_option_is_answered_with_the_nearest_of_the_help) {
    EXPECT_EQ(Run({u"dialog", u"--flag"}), 64);
    EXPECT_EQ(err.str(),
              "backproc dialog: unknown option '--flag'; did you mean '--flags'?\nTry 'backproc help dialog'.\n");
}

TEST_F(ToolTest, failures_of_a_dialog_have_a_code_of_their_own) {
    EXPECT_EQ(Run({u"dialog"}), 65);
    EXPECT_EQ(err.str(), "backproc dialog: no kernel\n");
}

TEST_F(ToolTest, output_that_cannot_be_written_is_a_failure) {
    out.setstate(std::ios::badbit);
    EXPECT_EQ(Run({u"echo", u"a"}), 1);
    EXPECT_EQ(err.str(), "backproc echo: could not write all output (disk full or pipe closed)\n");
}

TEST_F(ToolTest, help_is_given_wherever_it_is_asked_for) {
    EXPECT_EQ(Run({u"misused", u"KEY", u"--help"}), 0);
    EXPECT_EQ(out.str(), "Usage: backproc misused KEY\n");
}

TEST_F(ToolTest, behind_the_end_of_options_help_is_an_argument) {
    EXPECT_EQ(Run({u"echo", u"--", u"--help"}), 0);
    EXPECT_EQ(out.str(), "<--><--help>");
}

TEST_F(ToolTest, the_overview_has_one_table_of_exit_codes) {
    EXPECT_EQ(Run({u"help"}), 0);
    EXPECT_THAT(out.str(), HasSubstr("\nExit codes:\n  0      done"));
    EXPECT_THAT(out.str(), HasSubstr("\n  64     msgbox, query: the command line cannot be understood\n"));
}

TEST_F(ToolTest, an_unknown_verb_is_named_with_a_hint) {
    EXPECT_EQ(Run({u"hosst"}), 2);
    EXPECT_EQ(err.str(), "backproc: unknown command 'hosst'\nTry 'backproc help'.\n");
}

TEST_F(ToolTest, help_of_an_unknown_verb_is_bad_usage) {
    EXPECT_EQ(Run({u"help", u"hosst"}), 2);
}

TEST_F(ToolTest, an_option_without_a_verb_is_called_one) {
    EXPECT_EQ(Run({u"--verbose"}), 2);
    EXPECT_EQ(err.str(), "backproc: unknown option '--verbose'\nTry 'backproc help'.\n");
}

TEST_F(ToolTest, help_and_version_name_what_is_too_much) {
    EXPECT_EQ(Run({u"--help", u"echo", u"misused"}), 2);
    EXPECT_EQ(Run({u"--version", u"1"}), 2);
    EXPECT_EQ(err.str(),
              "backproc: unexpected argument 'misused'\nTry 'backproc help'.\n"
              "backproc: unexpected argument '1'\nTry 'backproc help'.\n");
}

TEST_F(ToolTest, help_is_given_whatever_follows_it) {
    EXPECT_EQ(Run({u"misused", u"--help", u"KEY"}), 0);
    EXPECT_EQ(out.str(), "Usage: backproc misused KEY\n");
}

TEST_F(ToolTest, a_lack_of_memory_is_said_in_words) {
    EXPECT_EQ(Run({u"huge"}), 1);
    EXPECT_EQ(err.str(), "backproc huge: there is not enough memory for this\n");
}

TEST_F(ToolTest, bad_usage_of_a_verb_points_to_its_help) {
    EXPECT_EQ(Run({u"misused"}), 2);
    EXPECT_EQ(err.str(), "backproc misused: KEY is missing\nTry 'backproc help misused'.\n");
}

TEST_F(ToolTest, a_failing_verb_gives_its_text_and_one) {
    EXPECT_EQ(Run({u"failing"}), 1);
    EXPECT_EQ(err.str(), "backproc failing: no kernel\n");
    EXPECT_EQ(out.str(), "");
}

}  // namespace
}  // namespace tools
