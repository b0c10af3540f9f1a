#include "tools/Usage.h"

#include <gtest/gtest.h>

#include <functional>

namespace tools {
namespace {

std::string ComplaintOf(const std::function<void()>& reading) {
    try {
        reading();
    } catch (const UsageError& error) {
        return error.what();
    }
    return "(none)";
}

TEST(Usage, EveryError_NamesTheArgument) {
    EXPECT_STREQ(Missing("KEY").what(), "missing argument KEY");
    EXPECT_STREQ(Missing("--kind").what(), "missing option --kind");
    EXPECT_STREQ(UnexpectedArgument(u"a b").what(), "unexpected argument 'a b'");
    EXPECT_STREQ(UnknownOption(u"--kinds").what(), "unknown option '--kinds'");
}

TEST(Usage, ValueOf_ReturnsTheNextArgument) {
    EXPECT_EQ(ValueOf({u"--kind", u"1"}, 0), u"1");
    EXPECT_EQ(ComplaintOf([] { ValueOf({u"1", u"--kind"}, 1); }), "option '--kind' requires a value");
}

TEST(Usage, RequireAtMost_NamesTheFirstSurplusArgument) {
    EXPECT_EQ(ComplaintOf([] { RequireAtMost(2, {u"a", u"b"}); }), "(none)");
    EXPECT_EQ(ComplaintOf([] { RequireAtMost(2, {u"a", u"b", u"c", u"d"}); }), "unexpected argument 'c'");
    EXPECT_EQ(ComplaintOf([] { RequireAtMost(0, {u""}); }), "unexpected argument ''");
}

TEST(Usage, ReadWhole_AcceptsTheEndsOfTheRange) {
    EXPECT_EQ(ReadWhole(u"-32768", "MODE", -32768, 32767), -32768);
    EXPECT_EQ(ReadWhole(u"32767", "MODE", -32768, 32767), 32767);
}

TEST(Usage, ReadWhole_NamesAWrongValueAndTheRange) {
    for (const std::string text : {"-32769", "32768", "", "1.5", "0x1", "9999999999999999999", " 1", "1 "}) {
        EXPECT_EQ(ComplaintOf([&] { ReadWhole(runtime::FromUtf8(text), "MODE", -32768, 32767); }),
                  "MODE must be a whole number from -32768 to 32767, not '" + text + "'");
    }
}

TEST(Usage, ReadNumber_AcceptsDecimalAndHexadecimal) {
    EXPECT_EQ(ReadNumber(u"0", "N"), 0);
    EXPECT_EQ(ReadNumber(u"-101", "N"), -101);
    EXPECT_EQ(ReadNumber(u"2147483647", "N"), 2147483647);
    EXPECT_EQ(ReadNumber(u"0x1f", "N"), 31);
    EXPECT_EQ(ReadNumber(u"0XFFFFFFF7", "N"), ~8);
}

TEST(Usage, ReadNumber_NamesAWrongValue) {
    for (const std::string text : {"", "x", "8 ", "+8", "0x", "0x-1", "2147483648", "0x100000000", "\xEF\xBC\x91"}) {
        EXPECT_EQ(
            ComplaintOf([&] { ReadNumber(runtime::FromUtf8(text), "--flags"); }),
            "--flags must be a number from -2147483648 to 2147483647, or from 0x0 to 0xFFFFFFFF, not '" + text + "'");
    }
}

}  // namespace
}  // namespace tools
