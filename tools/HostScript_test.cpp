#include "tools/HostScript.h"

#include <gtest/gtest.h>

namespace tools {
namespace {

HostCommand WithNumber(HostVerb verb, std::int32_t number, std::optional<String> text = std::nullopt) {
    return {.verb = verb, .number = number, .key = {}, .text = std::move(text)};
}

HostCommand WithKey(HostVerb verb, String key, std::optional<String> text = std::nullopt) {
    return {.verb = verb, .number = 0, .key = std::move(key), .text = std::move(text)};
}

std::string ErrorOf(StringView line) {
    try {
        ParseHostCommand(line);
    } catch (const HostScriptError& error) {
        return error.what();
    }
    return "none";
}

TEST(HostScript, skips_blank_lines_and_comments) {
    for (const StringView line : {u"", u"  \t ", u"# create", u"  #create"}) {
        EXPECT_EQ(ParseHostCommand(line), HostCommand{});
    }
}

TEST(HostScript, reads_commands_that_stand_alone) {
    EXPECT_EQ(ParseHostCommand(u"create").verb, HostVerb::kCreate);
    EXPECT_EQ(ParseHostCommand(u" \tstrings ").verb, HostVerb::kStrings);
    EXPECT_EQ(ParseHostCommand(u"state").verb, HostVerb::kState);
}

TEST(HostScript, reads_commands_with_a_number) {
    EXPECT_EQ(ParseHostCommand(u"load 1"), WithNumber(HostVerb::kLoad, 1));
    EXPECT_EQ(ParseHostCommand(u"release\t 12 "), WithNumber(HostVerb::kRelease, 12));
    EXPECT_EQ(ParseHostCommand(u"pump 999999999"), WithNumber(HostVerb::kPump, 999999999));
}

TEST(HostScript, takes_the_rest_of_the_line_as_it_stands) {
    EXPECT_EQ(ParseHostCommand(u"notify 1 All,SAVE"), WithNumber(HostVerb::kNotify, 1, u"All,SAVE"));
    EXPECT_EQ(ParseHostCommand(u"notify 1  \"a\" # b "), WithNumber(HostVerb::kNotify, 1, u" \"a\" # b "));
    EXPECT_EQ(ParseHostCommand(u"set JobDir C:\\My jobs"), WithKey(HostVerb::kSet, u"JobDir", u"C:\\My jobs"));
}

TEST(HostScript, tells_no_text_from_an_empty_text) {
    EXPECT_EQ(ParseHostCommand(u"sever 3"), WithNumber(HostVerb::kSever, 3));
    EXPECT_EQ(ParseHostCommand(u"sever 3 "), WithNumber(HostVerb::kSever, 3, u""));
}

TEST(HostScript, takes_very_long_texts) {
    const String text(1'000'000, u'x');
    EXPECT_EQ(ParseHostCommand(u"notify 1 " + text).text, text);
}

TEST(HostScript, refuses_unknown_commands_by_name) {
    EXPECT_EQ(ErrorOf(u"Create"), "there is no command 'Create'; 'backproc help host' lists them");
    EXPECT_EQ(ErrorOf(u"loadx 1"), "there is no command 'loadx'; 'backproc help host' lists them");
}

TEST(HostScript, refuses_what_is_not_a_number) {
    EXPECT_EQ(ErrorOf(u"load one"), "'load' takes a whole number from 0 to 999999999, not 'one'");
    EXPECT_EQ(ErrorOf(u"load -1"), "'load' takes a whole number from 0 to 999999999, not '-1'");
    EXPECT_EQ(ErrorOf(u"pump 1000000000"), "'pump' takes a whole number from 0 to 999999999, not '1000000000'");
}

TEST(HostScript, refuses_missing_and_surplus_words) {
    EXPECT_EQ(ErrorOf(u"notify"), "'notify' needs a number");
    EXPECT_EQ(ErrorOf(u"get "), "'get' needs a key");
    EXPECT_EQ(ErrorOf(u"create 1"), "'1' is one word too many for 'create'");
    EXPECT_EQ(ErrorOf(u"get a b"), "'b' is one word too many for 'get'");
}

}  // namespace
}  // namespace tools
