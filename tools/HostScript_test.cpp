#include "tools/HostScript.h"

#include <gtest/gtest.h>

namespace tools {
namespace {

HostCommand WithNumber(HostVerb verb, std::int32_t number, std::optional<String> text = std::nullopt) {
    return {.verb = verb, .number = number, .key = {}, .mode = 0, .text = std::move(text)};
}

HostCommand WithKey(HostVerb verb, String key, std::optional<String> text = std::nullopt) {
    return {.verb = verb, .number = 0, .key = std::move(key), .mode = 0, .text = std::move(text)};
}

HostCommand ForModule(HostVerb verb, String module, std::int16_t mode, std::optional<String> text) {
    return {.verb = verb, .number = 2, .key = std::move(module), .mode = mode, .text = std::move(text)};
}

std::string ErrorOf(StringView line) {
    try {
        ParseHostCommand(line);
    } catch (const HostScriptError& error) {
        return error.what();
    }
    return "none";
}

TEST(HostScript, BlankLinesAndComments_AreSkipped) {
    for (const StringView line : {u"", u"  \t ", u"# create", u"  #create"}) {
        EXPECT_EQ(ParseHostCommand(line), HostCommand{});
    }
}

TEST(HostScript, CommandWithoutArguments_IsParsed) {
    EXPECT_EQ(ParseHostCommand(u"create").verb, HostVerb::kCreate);
    EXPECT_EQ(ParseHostCommand(u" \tstrings ").verb, HostVerb::kStrings);
    EXPECT_EQ(ParseHostCommand(u"state").verb, HostVerb::kState);
}

TEST(HostScript, CommandWithANumber_IsParsed) {
    EXPECT_EQ(ParseHostCommand(u"load 1"), WithNumber(HostVerb::kLoad, 1));
    EXPECT_EQ(ParseHostCommand(u"release\t 12 "), WithNumber(HostVerb::kRelease, 12));
    EXPECT_EQ(ParseHostCommand(u"pump 999999999"), WithNumber(HostVerb::kPump, 999999999));
}

TEST(HostScript, Text_IsTheUnchangedRestOfTheLine) {
    EXPECT_EQ(ParseHostCommand(u"notify 1 All,SAVE"), WithNumber(HostVerb::kNotify, 1, u"All,SAVE"));
    EXPECT_EQ(ParseHostCommand(u"notify 1  \"a\" # b "), WithNumber(HostVerb::kNotify, 1, u" \"a\" # b "));
    EXPECT_EQ(ParseHostCommand(u"set JobDir C:\\My jobs"), WithKey(HostVerb::kSet, u"JobDir", u"C:\\My jobs"));
}

TEST(HostScript, Send_TakesModuleAndRest) {
    EXPECT_EQ(ParseHostCommand(u"send 2 M X,1 "), ForModule(HostVerb::kSend, u"M", 0, u"X,1 "));
    EXPECT_EQ(ParseHostCommand(u"send 2 M"), ForModule(HostVerb::kSend, u"M", 0, std::nullopt));
    EXPECT_EQ(ParseHostCommand(u"sendall 1 OPEN"), WithNumber(HostVerb::kSendAll, 1, u"OPEN"));
    EXPECT_EQ(ErrorOf(u"send 1"), "'send' requires a module");
}

TEST(HostScript, Shell_TakesModuleModeAndRest) {
    EXPECT_EQ(ParseHostCommand(u"shell 2 M -3 a,b"), ForModule(HostVerb::kShell, u"M", -3, u"a,b"));
    EXPECT_EQ(ParseHostCommand(u"shell 2 M -32768 "), ForModule(HostVerb::kShell, u"M", -32768, u""));
    EXPECT_EQ(ParseHostCommand(u"shell 2 M 32767"), ForModule(HostVerb::kShell, u"M", 32767, std::nullopt));
    EXPECT_EQ(ErrorOf(u"shell 2 M"), "'shell' requires a mode");
    EXPECT_EQ(ErrorOf(u"shell 2 M 32768 x"), "MODE must be a whole number from -32768 to 32767, not '32768'");
}

TEST(HostScript, MissingText_DiffersFromEmptyText) {
    EXPECT_EQ(ParseHostCommand(u"sever 3"), WithNumber(HostVerb::kSever, 3));
    EXPECT_EQ(ParseHostCommand(u"sever 3 "), WithNumber(HostVerb::kSever, 3, u""));
}

TEST(HostScript, TextOfAMillionCharacters_IsParsed) {
    const String text(1'000'000, u'x');
    EXPECT_EQ(ParseHostCommand(u"notify 1 " + text).text, text);
}

TEST(HostScript, UnknownCommand_IsNamed) {
    EXPECT_EQ(ErrorOf(u"Create"), "unknown command 'Create'; 'backproc help host' lists the commands");
    EXPECT_EQ(ErrorOf(u"loadx 1"), "unknown command 'loadx'; 'backproc help host' lists the commands");
}

TEST(HostScript, WrongNumber_IsNamed) {
    EXPECT_EQ(ErrorOf(u"load one"), "'load' takes a whole number from 0 to 999999999, not 'one'");
    EXPECT_EQ(ErrorOf(u"load -1"), "'load' takes a whole number from 0 to 999999999, not '-1'");
    EXPECT_EQ(ErrorOf(u"pump 1000000000"), "'pump' takes a whole number from 0 to 999999999, not '1000000000'");
}

TEST(HostScript, MissingAndSurplusArguments_AreNamed) {
    EXPECT_EQ(ErrorOf(u"notify"), "'notify' requires a number");
    EXPECT_EQ(ErrorOf(u"get "), "'get' requires a key");
    EXPECT_EQ(ErrorOf(u"create 1"), "unexpected argument '1' for 'create'");
    EXPECT_EQ(ErrorOf(u"get a b"), "unexpected argument 'b' for 'get'");
}

}  // namespace
}  // namespace tools
