#include "tools/Tool.h"

#include <gmock/gmock.h>

#include <sstream>

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

int Huge(const Arguments&, Console&) {
    throw std::bad_alloc();
}

constexpr Verb kTestVerbs[] = {
    {"echo", "Prints its arguments", "Usage: backproc echo\n", Echo},
    {"misused", "Wants a key", "Usage: backproc misused KEY\n", Misused},
    {"failing", "Fails", "Usage: backproc failing\n", Failing},
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
    EXPECT_EQ(Run({u"--version"}), 0);
    EXPECT_EQ(out.str(), "backproc 1.2.3\n");
}

TEST_F(ToolTest, an_unknown_verb_is_named_with_a_hint) {
    EXPECT_EQ(Run({u"hosst"}), 2);
    EXPECT_EQ(err.str(), "backproc: there is no verb 'hosst'\nTry 'backproc help'.\n");
}

TEST_F(ToolTest, help_of_an_unknown_verb_is_bad_usage) {
    EXPECT_EQ(Run({u"help", u"hosst"}), 2);
}

TEST_F(ToolTest, an_option_without_a_verb_is_called_one) {
    EXPECT_EQ(Run({u"--verbose"}), 2);
    EXPECT_EQ(err.str(), "backproc: there is no option '--verbose'\nTry 'backproc help'.\n");
}

TEST_F(ToolTest, help_and_version_name_what_is_too_much) {
    EXPECT_EQ(Run({u"--help", u"echo", u"misused"}), 2);
    EXPECT_EQ(Run({u"--version", u"1"}), 2);
    EXPECT_EQ(err.str(),
              "backproc: 'misused' is one argument too many\nTry 'backproc help'.\n"
              "backproc: '1' is one argument too many\nTry 'backproc help'.\n");
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
