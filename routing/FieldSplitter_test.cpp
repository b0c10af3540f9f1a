#include "routing/FieldSplitter.h"

#include <gtest/gtest.h>

#include <chrono>
#include <cstdlib>
#include <iterator>
#include <random>
#include <thread>
#include <vector>

#include "runtime/Error.h"
#include "tests/support/ComponentFixture.h"
#include "tests/support/ErrorOf.h"
#include "tests/support/SlowFieldSplitter.h"

namespace routing {
namespace {

using runtime::String;
using runtime::StringView;
using runtime::ToUtf8;
using tests::ErrorOf;

struct Row {
    const char16_t* text;
    std::vector<String> fields;
};

// The expected fields were derived from the rules by hand.
const std::vector<Row>& Rows() {
    static const std::vector<Row> rows = {
        // plain fields
        {u"", {u""}},
        {u"A", {u"A"}},
        {u"A,B", {u"A", u"B"}},
        {u"A,B,", {u"A", u"B", u""}},
        {u",", {u"", u""}},
        {u",,", {u"", u"", u""}},
        {u",A", {u"", u"A"}},
        {u"A,,B", {u"A", u"", u"B"}},
        {u" A , B ", {u" A ", u" B "}},
        {u"A\t,\r\nB", {u"A\t", u"\r\nB"}},
        {u"EDITOR,K4TBACKPROCESS,LIBRARY", {u"EDITOR", u"K4TBACKPROCESS", u"LIBRARY"}},
        {u"Pelorix, 0, 0,-1, 0", {u"Pelorix", u" 0", u" 0", u"-1", u" 0"}},
        {u"\u65B0,\u00E9", {u"\u65B0", u"\u00E9"}},
        // quoted fields
        {uR"("A")", {u"A"}},
        {uR"("A",B)", {u"A", u"B"}},
        {uR"("A,B",C)", {u"A,B", u"C"}},
        {uR"("A,",B)", {u"A,", u"B"}},
        {uR"(A,"B")", {u"A", u"B"}},
        {uR"(A,"B",C)", {u"A", u"B", u"C"}},
        {uR"("A","B","C")", {u"A", u"B", u"C"}},
        {uR"("")", {u""}},
        {uR"("","")", {u"", u""}},
        {uR"("",B)", {u"", u"B"}},
        {uR"(",")", {u","}},
        {uR"(",",",")", {u",", u","}},
        {uR"(" A ",B)", {u" A ", u"B"}},
        // a comma at the end of the text does not end a quoted field; the closing quote is kept
        {uR"("A",)", {uR"(A")"}},
        {uR"("",)", {uR"(")"}},
        {uR"(A,"B",)", {u"A", uR"(B")"}},
        {uR"(,"",)", {u"", uR"(")"}},
        // a comma at the end starts an empty field unless it directly follows a quoted field
        {uR"("A",,)", {u"A", u"", u""}},
        {uR"("",,)", {u"", u"", u""}},
        {uR"("A",B,)", {u"A", u"B", u""}},
        // text after the closing quote: the field loses its last character
        {uR"("A"x)", {uR"(A")"}},
        {uR"("A"xy)", {uR"(A"x)"}},
        {uR"("A"x,)", {uR"(A"x)"}},
        {uR"("A"x,B)", {uR"(A")", u"B"}},
        {uR"("A"xy,B)", {uR"(A"x)", u"B"}},
        {uR"("A" ,B)", {uR"(A")", u"B"}},
        {uR"(A,"B"C,"D")", {u"A", uR"(B")", u"D"}},
        // quotes after the closing quote
        {uR"(""")", {uR"(")"}},
        {uR"("""")", {uR"("")"}},
        {uR"(""",)", {uR"("")"}},
        {uR"("A""B",C)", {uR"(A""B)", u"C"}},
        {uR"("A"B"C",D)", {uR"(A"B"C)", u"D"}},
        {uR"("A,B,"C")", {uR"(A,B,"C)"}},
        // a quote as the last character opens no quoted field
        {uR"(")", {uR"(")"}},
        {uR"(A,")", {u"A", uR"(")"}},
        {uR"(,")", {u"", uR"(")"}},
        {uR"("",")", {u"", uR"(")"}},
        {uR"("A",")", {u"A", uR"(")"}},
        {uR"("A",",")", {u"A", u","}},
        // quotes inside plain fields are ordinary characters
        {uR"(A"B,C)", {uR"(A"B)", u"C"}},
        {uR"(A"B",C)", {uR"(A"B")", u"C"}},
        {uR"(A"B,C"D)", {uR"(A"B)", uR"(C"D)"}},
        {uR"( "A",B)", {uR"( "A")", u"B"}},
        {uR"( "A,B")", {uR"( "A)", uR"(B")"}},
        {uR"("A",B")", {u"A", uR"(B")"}},
    };
    return rows;
}

const StringView kEndless[] = {uR"("A)",     uR"(",)",      uR"(A,"B)", uR"("A",B,"C,D)",
                               uR"(A"B,"C)", uR"("A"B,"C)", uR"(,"B,)"};

using FieldSplitter = tests::HeadlessComponentTest;
using FieldSplitterDeathTest = FieldSplitter;

std::vector<String> WithEntryZero(std::vector<String> fields) {
    fields.insert(fields.begin(), String());
    return fields;
}

TEST_F(FieldSplitter, SplitsEveryRowOfTheTable) {
    for (const Row& row : Rows()) {
        SplitFields(row.text);
        EXPECT_EQ(FieldTexts(), WithEntryZero(row.fields)) << ToUtf8(row.text);
        ASSERT_EQ(FieldValues().size(), row.fields.size() + 1) << ToUtf8(row.text);
        EXPECT_EQ(FieldValues()[0], static_cast<double>(row.fields.size())) << ToUtf8(row.text);
    }
}

TEST_F(FieldSplitter, TableRows_AgreeWithTheSlowSplitter) {
    for (const Row& row : Rows()) {
        SplitFields(row.text);
        const tests::SlowFields slow = tests::SlowFieldSplitter::Split(row.text);
        EXPECT_EQ(slow.texts, WithEntryZero(row.fields)) << ToUtf8(row.text);
        EXPECT_EQ(slow.values, FieldValues()) << ToUtf8(row.text);
        EXPECT_FALSE(slow.isEndless || tests::NeverReturns(row.text)) << ToUtf8(row.text);
    }
    for (const StringView text : kEndless) {
        EXPECT_TRUE(tests::SlowFieldSplitter::Split(text).isEndless) << ToUtf8(text);
        EXPECT_TRUE(tests::NeverReturns(text)) << ToUtf8(text);
    }
}

/// Makes texts of up to 12 parts that are relevant to the rules. The sequence of texts is always the same.
class FieldListMaker {
 public:
    String Next() {
        static constexpr StringView kParts[] = {u"\"", u",", u"\"", u",", u" ", u"A",
                                                u"1",  u"E", u".",  u"-", u"&", u"1E999"};
        String text;
        for (auto left = random_() % 13; left > 0; --left) text += kParts[random_() % std::size(kParts)];
        return text;
    }

 private:
    std::minstd_rand random_{4711};
};

TEST_F(FieldSplitter, GeneratedTexts_AgreeWithTheSlowSplitter) {
    FieldListMaker maker;
    int overflows = 0;
    for (int compared = 0; compared < 100'000;) {
        const String text = maker.Next();
        const tests::SlowFields slow = tests::SlowFieldSplitter::Split(text);
        if (slow.isEndless) continue;
        ++compared;
        ASSERT_EQ(ErrorOf([&text] { SplitFields(text); }), slow.error) << ToUtf8(text);
        ASSERT_EQ(FieldTexts(), slow.texts) << ToUtf8(text);
        ASSERT_EQ(FieldValues(), slow.values) << ToUtf8(text);
        if (slow.error != 0) ++overflows;
    }
    EXPECT_GT(overflows, 100);
}

TEST_F(FieldSplitter, NoSplitYet_ArraysAreEmpty) {
    EXPECT_TRUE(FieldTexts().empty());
    EXPECT_TRUE(FieldValues().empty());
}

TEST_F(FieldSplitter, DiscardsThePreviousFields) {
    SplitFields(u"1,2,3");
    SplitFields(u"4");
    EXPECT_EQ(FieldTexts(), (std::vector<String>{u"", u"4"}));
    EXPECT_EQ(FieldValues(), (std::vector<double>{1, 4}));
}

TEST_F(FieldSplitter, ReadsEachFieldsNumber) {
    SplitFields(uR"(1,5, 0,-2.5,"3,5",A,,"7")");
    EXPECT_EQ(FieldValues(), (std::vector<double>{8, 1, 5, 0, -2.5, 3.5, 0, 0, 7}));
}

TEST_F(FieldSplitter, TextFromItsOwnResult_IsSplit) {
    SplitFields(uR"(A,"a first name,a second one, long enough to lie elsewhere")");
    SplitFields(FieldTexts()[2]);
    EXPECT_EQ(FieldTexts(),
              (std::vector<String>{u"", u"a first name", u"a second one", u" long enough to lie elsewhere"}));
}

TEST_F(FieldSplitter, KeepsNulCharacters) {
    SplitFields(String(u"A\0,\0B", 5));
    EXPECT_EQ(FieldTexts(), (std::vector<String>{u"", String(u"A\0", 2), String(u"\0B", 2)}));
}

TEST_F(FieldSplitter, Overflow_IsErrorAndArraysEndWithThatField) {
    EXPECT_EQ(ErrorOf([] { SplitFields(u"1,2,1E999,4"); }), runtime::kOverflow);
    EXPECT_EQ(FieldTexts(), (std::vector<String>{u"", u"1", u"2", u"1E999"}));
    EXPECT_EQ(FieldValues(), (std::vector<double>{0, 1, 2, 0}));
}

TEST_F(FieldSplitter, Overflow_ErrorNamesTheFieldAndItsText) {
    const auto description = [](StringView text) {
        try {
            SplitFields(text);
        } catch (const runtime::Error& error) {
            return error.Description();
        }
        return String(u"(none)");
    };
    EXPECT_EQ(description(u"1,2,1E999,4"), u"Overflow: field 3, '1E999'");
    EXPECT_EQ(description(u"A," + String(400, u'9')), u"Overflow: field 2, '" + String(80, u'9') + u"…'");
}

TEST_F(FieldSplitter, OverflowInQuotedOrLastField_IsError6) {
    EXPECT_EQ(ErrorOf([] { SplitFields(uR"(1,"1E999",4)"); }), runtime::kOverflow);
    EXPECT_EQ(FieldValues(), (std::vector<double>{0, 1, 0}));
    EXPECT_EQ(ErrorOf([] { SplitFields(u"1,&H123456789"); }), runtime::kOverflow);
    EXPECT_EQ(FieldTexts(), (std::vector<String>{u"", u"1", u"&H123456789"}));
}

TEST_F(FieldSplitter, IndexOutsideTheArrays_IsError9) {
    EXPECT_EQ(ErrorOf([] { FieldText(0); }), runtime::kSubscriptOutOfRange);
    SplitFields(u"A,2");
    EXPECT_EQ(FieldText(0), u"");
    EXPECT_EQ(FieldText(2), u"2");
    EXPECT_EQ(FieldValue(0), 2);
    EXPECT_EQ(ErrorOf([] { FieldText(3); }), runtime::kSubscriptOutOfRange);
    EXPECT_EQ(ErrorOf([] { FieldValue(3); }), runtime::kSubscriptOutOfRange);
    EXPECT_EQ(ErrorOf([] { FieldValue(-1); }), runtime::kSubscriptOutOfRange);
}

TEST_F(FieldSplitter, SplitsAMillionFields) {
    constexpr std::size_t kFields = 1'000'000;
    String text = u"1";
    for (std::size_t i = 1; i < kFields; ++i) text += i % 2 == 0 ? u",1" : uR"(,"1")";
    SplitFields(text);
    EXPECT_EQ(FieldValues().front(), kFields);
    EXPECT_EQ(FieldText(kFields), u"1");
}

TEST(FieldToNumber, ReadsTheFirstCommaAsAPeriod) {
    EXPECT_EQ(FieldToNumber(u"1,5"), 1.5);
    EXPECT_EQ(FieldToNumber(u"1,5,7"), 1.5);
    EXPECT_EQ(FieldToNumber(u"1.5,7"), 1.5);
    EXPECT_EQ(FieldToNumber(u",5"), 0.5);
    EXPECT_EQ(FieldToNumber(u"1,5.7"), 1.5);
    EXPECT_EQ(FieldToNumber(u"2E1,5"), 20);
    EXPECT_EQ(FieldToNumber(u"&H1F,5"), 31);
    EXPECT_EQ(FieldToNumber(u"-,"), 0);
}

TEST(FieldToNumber, IsZeroWithoutANumber) {
    EXPECT_EQ(FieldToNumber(u""), 0);
    EXPECT_EQ(FieldToNumber(u"A1"), 0);
    EXPECT_EQ(FieldToNumber(u" "), 0);
}

TEST(FieldToNumber, LeadingBlank_IsIgnored) {
    EXPECT_EQ(FieldToNumber(u" 12"), 12);
}

constexpr int kStillRunning = 42;
constexpr int kReturned = 43;
constexpr std::chrono::milliseconds kLongEnough{500};

/// Runs in the child process of a death test. Ends the process when the split returns, or after kLongEnough.
[[noreturn]] void SplitWithTimeout(const String& text) {
    std::thread([] {
        std::this_thread::sleep_for(kLongEnough);
        std::_Exit(kStillRunning);
    }).detach();
    SplitFields(text);
    std::_Exit(kReturned);
}

TEST_F(FieldSplitterDeathTest, NoClosingQuote_SplitNeverReturns) {
    EXPECT_EXIT(SplitWithTimeout(uR"("A,B)"), testing::ExitedWithCode(kStillRunning), "");
    EXPECT_EXIT(SplitWithTimeout(uR"(A,"B",C,"D)"), testing::ExitedWithCode(kStillRunning), "");
}

}  // namespace
}  // namespace routing
