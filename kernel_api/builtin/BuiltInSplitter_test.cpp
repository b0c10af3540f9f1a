// Splits texts into fields. One test compares the fields of every short text with the fields of the tests' simple, slow
// splitter, except for texts for which the component's field splitter never returns.
#include "kernel_api/builtin/BuiltInSplitter.h"
#include "kernel_api/Suite.h"

#include <gtest/gtest.h>

#include <limits>
#include <vector>

#include "runtime/Error.h"
#include "tests/support/ErrorOf.h"
#include "tests/support/SlowFieldSplitter.h"

namespace kernel_api::builtin {
namespace {

using tests::ErrorOf;

class FieldParserTest : public ::testing::Test {
 protected:
    /// Returns the first `count` fields of `text`.
    std::vector<String> Fields(StringView text, std::int32_t count) {
        parser_->SetText(text);
        std::vector<String> fields;
        for (std::int32_t i = 1; i <= count; ++i) fields.emplace_back(parser_->Field(i));
        return fields;
    }

    BuiltInSplitter splitter_;
    std::unique_ptr<FieldParser> parser_ = splitter_.MakeFieldParser();
};

using Texts = std::vector<String>;

TEST_F(FieldParserTest, Fields_AreSeparatedByCommas) {
    EXPECT_EQ(Fields(u"All,SAVE,3", 3), (Texts{u"All", u"SAVE", u"3"}));
    EXPECT_EQ(Fields(u" All , SAVE", 2), (Texts{u" All ", u" SAVE"}));
}

TEST_F(FieldParserTest, QuotedField_MayContainCommas) {
    EXPECT_EQ(Fields(uR"("A,B",C)", 2), (Texts{u"A,B", u"C"}));
}

TEST_F(FieldParserTest, MissingFieldIsEmpty) {
    EXPECT_EQ(Fields(u"All", 3), (Texts{u"All", u"", u""}));
    EXPECT_EQ(parser_->Field(std::numeric_limits<std::int32_t>::max()), u"");
    EXPECT_EQ(parser_->Field(0), u"");
    EXPECT_EQ(parser_->Field(-1), u"");
    EXPECT_EQ(parser_->Field(1), u"All");
}

TEST_F(FieldParserTest, NoText_NoFields) {
    EXPECT_EQ(parser_->Field(1), u"");
}

TEST_F(FieldParserTest, Fields_CanBeReadInAnyOrderAndTwice) {
    parser_->SetText(u"A,B,C");
    EXPECT_EQ(parser_->Field(3), u"C");
    EXPECT_EQ(parser_->Field(1), u"A");
    EXPECT_EQ(parser_->Field(1), u"A");
    EXPECT_EQ(parser_->Field(2), u"B");
}

TEST_F(FieldParserTest, NewText_ReplacesTheEarlierText) {
    Fields(u"A,B,C", 3);
    EXPECT_EQ(Fields(u"D", 3), (Texts{u"D", u"", u""}));
}

TEST_F(FieldParserTest, KeepsACopyOfTheText) {
    String text = u"All,SAVE";
    parser_->SetText(text);
    text.assign(8, u'x');
    EXPECT_EQ(parser_->Field(2), u"SAVE");
}

TEST_F(FieldParserTest, QuoteThatNeverCloses_FieldIsTheRestOfTheText) {
    EXPECT_EQ(Fields(uR"("A,B)", 2), (Texts{u"A,B", u""}));
    EXPECT_EQ(Fields(uR"(All,"SAVE,x,)", 3), (Texts{u"All", u"SAVE,x,", u""}));
    EXPECT_EQ(Fields(uR"("A","B)", 3), (Texts{u"A", u"B", u""}));
}

TEST_F(FieldParserTest, LastFieldIsOnlyAQuote_FieldIsTheQuote) {
    EXPECT_EQ(Fields(uR"(")", 1), (Texts{uR"(")"}));
    EXPECT_EQ(Fields(uR"(A,")", 2), (Texts{u"A", uR"(")"}));
}

TEST_F(FieldParserTest, FieldMayContainAnyCharacter) {
    const String text{u'A', u'\0', u',', char16_t{0xD800}, u',', char16_t{0xDC00}};
    EXPECT_EQ(Fields(text, 3), (Texts{String{u'A', u'\0'}, String{char16_t{0xD800}}, String{char16_t{0xDC00}}}));
}

// Tries every text of up to seven of these characters. Skips texts for which the field splitter never returns.
TEST_F(FieldParserTest, ShortText_HasTheFieldsOfTheFieldSplitter) {
    constexpr StringView kCharacters = u"\",Ab";
    for (std::size_t number = 1; number < (1U << 15); ++number) {
        String text;
        for (std::size_t rest = number; rest > 1; rest /= kCharacters.size()) {
            text += kCharacters[rest % kCharacters.size()];
        }
        const tests::SlowFields slow = tests::SlowFieldSplitter::Split(text);
        if (slow.isEndless) continue;
        const auto count = static_cast<std::int32_t>(slow.texts.size()) - 1;
        Texts expected(slow.texts.begin() + 1, slow.texts.end());
        expected.emplace_back();
        ASSERT_EQ(Fields(text, count + 1), expected) << runtime::ToUtf8(text);
    }
}

TEST(BuiltInSplitter, ParsersAreIndependent) {
    BuiltInSplitter splitter;
    const auto first = splitter.MakeFieldParser();
    const auto second = splitter.MakeFieldParser();
    first->SetText(u"A");
    second->SetText(u"B");
    EXPECT_EQ(first->Field(1), u"A");
}

TEST(BuiltInSplitter, PiecesAreOneMoreThanSeparators) {
    BuiltInSplitter splitter;
    EXPECT_EQ(splitter.CountPieces(u"one line", u"\r\n"), 1);
    EXPECT_EQ(splitter.CountPieces(u"two\r\nlines", u"\r\n"), 2);
    EXPECT_EQ(splitter.CountPieces(u"a\r\n\r\nb", u"\r\n"), 3);
    EXPECT_EQ(splitter.CountPieces(u"a\nb\rc", u"\r\n"), 1);
}

TEST(BuiltInSplitter, EmptyPieces_AreCounted) {
    BuiltInSplitter splitter;
    EXPECT_EQ(splitter.CountPieces(u"ends in one\r\n", u"\r\n"), 2);
    EXPECT_EQ(splitter.CountPieces(u"\r\n", u"\r\n"), 2);
    EXPECT_EQ(splitter.CountPieces(u"", u"\r\n"), 1);
}

TEST(BuiltInSplitter, SeparatorsDoNotOverlap) {
    EXPECT_EQ(BuiltInSplitter().CountPieces(u"aaa", u"aa"), 2);
    EXPECT_EQ(BuiltInSplitter().CountPieces(u"aaaa", u"aa"), 3);
}

TEST(BuiltInSplitter, EmptySeparator_OnePiece) {
    EXPECT_EQ(BuiltInSplitter().CountPieces(u"abc", u""), 1);
}

TEST(SplitterInUse, IsTheSplitterThatWasChosen) {
    EXPECT_EQ(ErrorOf([] { CurrentSplitter(); }), runtime::kObjectVariableNotSet);
    BuiltInSplitter splitter;
    CurrentSuite().splitter = &splitter;
    EXPECT_EQ(&CurrentSplitter(), &splitter);
    CurrentSuite().splitter = nullptr;
    EXPECT_EQ(ErrorOf([] { CurrentSplitter(); }), runtime::kObjectVariableNotSet);
}

}  // namespace
}  // namespace kernel_api::builtin
