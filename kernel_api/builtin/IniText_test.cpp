// Decodes INI files in UTF-8, UTF-16 and ANSI, with and without byte order marks, and finds their settings.
#include "kernel_api/builtin/IniText.h"

#include <gmock/gmock.h>

#include "runtime/headless/PlainLocale.h"

namespace kernel_api::builtin {
namespace {

using runtime::headless::PlainLocale;

String Decoded(std::string_view bytes) {
    PlainLocale locale;
    return DecodeIni(bytes, locale);
}

TEST(IniProblem, ReadableFile_HasNoProblem) {
    EXPECT_EQ(IniProblem(""), "");
    EXPECT_EQ(IniProblem("[a]\nk=\xFC\n"), "");  // the ANSI code page
    EXPECT_EQ(IniProblem("\xEF\xBB\xBFk=\xC3\xBC"), "");
    EXPECT_EQ(IniProblem(std::string_view("\xFF\xFE\x61\x00", 4)), "");
}

TEST(IniProblem, TextThatDoesNotFitItsByteOrderMark_IsReported) {
    EXPECT_THAT(IniProblem("\xEF\xBB\xBFk=\xFC"), ::testing::HasSubstr("not valid UTF-8"));
    EXPECT_THAT(IniProblem(std::string_view("\xFF\xFE\x61", 3)), ::testing::HasSubstr("within a character"));
    EXPECT_THAT(IniProblem(std::string_view("\xFE\xFF\x61", 3)), ::testing::HasSubstr("within a character"));
}

TEST(IniProblem, Utf16WithoutByteOrderMark_IsReported) {
    EXPECT_THAT(IniProblem(std::string_view("k\0=\0", 4)), ::testing::HasSubstr("NUL characters"));
}

TEST(DecodeIni, AsciiText_IsUnchanged) {
    EXPECT_EQ(Decoded("[Marlento]\r\nVer=1"), u"[Marlento]\r\nVer=1");
    EXPECT_EQ(Decoded(""), u"");
}

TEST(DecodeIni, Utf8WithOrWithoutMark_IsDecoded) {
    EXPECT_EQ(Decoded("Maker=\xC3\xA4\xE4\xB8\xAD"), u"Maker=\u00E4\u4E2D");
    EXPECT_EQ(Decoded("\xEF\xBB\xBFMaker=\xC3\xA4"), u"Maker=\u00E4");
}

TEST(DecodeIni, InvalidUtf8IsAnsi) {
    EXPECT_EQ(Decoded("Maker=\xE4\x80"), u"Maker=\u00E4\u20AC");
    EXPECT_EQ(Decoded("\xC3\xA4 \xE4"), u"\u00C3\u00A4 \u00E4");
}

TEST(DecodeIni, ReplacementCharacterInTheFile_IsNoDecodingError) {
    EXPECT_EQ(Decoded("a\xEF\xBF\xBD\xC3\xA4"), u"a\uFFFD\u00E4");
}

TEST(DecodeIni, InvalidUtf8AfterAMark_IsNotReadAsAnsi) {
    EXPECT_EQ(Decoded("\xEF\xBB\xBF"
                      "a\xE4z"),
              u"a\uFFFDz");
}

TEST(DecodeIni, Utf16IsReadInBothByteOrders) {
    EXPECT_EQ(Decoded({"\xFF\xFE"
                       "a\0\x2D\x4E",
                       6}),
              u"a\u4E2D");
    EXPECT_EQ(Decoded({"\xFE\xFF\0a\x4E\x2D", 6}), u"a\u4E2D");
}

TEST(DecodeIni, OddLastByteOfUtf16_IsIgnored) {
    EXPECT_EQ(Decoded({"\xFF\xFE"
                       "a\0b",
                       5}),
              u"a");
    EXPECT_EQ(Decoded({"\xFE\xFF\0", 3}), u"");
}

TEST(DecodeIni, OnlyAMark_IsAnEmptyText) {
    EXPECT_EQ(Decoded("\xEF\xBB\xBF"), u"");
    EXPECT_EQ(Decoded("\xFF\xFE"), u"");
}

TEST(DecodeIni, HalfAByteOrderMark_IsAnsi) {
    EXPECT_EQ(Decoded("\xEF\xBB"), u"\u00EF\u00BB");
    EXPECT_EQ(Decoded("\xFF"), u"\u00FF");
}

class IniTextTest : public testing::Test {
 protected:
    /// Returns the value of `key` in the section [S] of `text`; "none" if the key does not exist.
    String Value(StringView text, StringView key) { return ValueIn(text, u"S", key); }
    String ValueIn(StringView text, StringView section, StringView key) {
        const IniText ini(locale_, text);
        const String* const value = ini.Find(section, key);
        return value ? *value : u"none";
    }

    PlainLocale locale_;
};

TEST_F(IniTextTest, KeyIsFoundInItsSection) {
    constexpr StringView kText = u"[A]\r\nk=1\r\n[S]\r\nk=2\r\n";
    EXPECT_EQ(ValueIn(kText, u"A", u"k"), u"1");
    EXPECT_EQ(ValueIn(kText, u"S", u"k"), u"2");
    EXPECT_EQ(ValueIn(kText, u"B", u"k"), u"none");
    EXPECT_EQ(ValueIn(kText, u"S", u"x"), u"none");
}

TEST_F(IniTextTest, LetterCase_IgnoredInNamesAndKeptInValues) {
    EXPECT_EQ(ValueIn(u"[MarLento\u00C4]\njobDIR=C:\\Cad", u"mARLENTO\u00E4", u"JOBdir"), u"C:\\Cad");
}

TEST_F(IniTextTest, CrOrLfOrBoth_EndALine) {
    EXPECT_EQ(Value(u"[S]\rk=1\rl=2", u"k"), u"1");
    EXPECT_EQ(Value(u"[S]\nk=1\nl=2", u"l"), u"2");
    EXPECT_EQ(Value(u"[S]\r\nk=1\r\n\r\nl=2", u"l"), u"2");
}

TEST_F(IniTextTest, BlanksAndTabsAroundNamesAndValuesAreRemoved) {
    EXPECT_EQ(ValueIn(u" \t[ S x ] \n \t k y \t=\t a b \t", u"S x", u"k y"), u"a b");
}

TEST_F(IniTextTest, OnePairOfQuotesIsRemoved) {
    EXPECT_EQ(Value(u"[S]\nk=\" a \"", u"k"), u" a ");
    EXPECT_EQ(Value(u"[S]\nk= ' a ' ", u"k"), u" a ");
    EXPECT_EQ(Value(u"[S]\nk=\"\"a\"\"", u"k"), u"\"a\"");
    EXPECT_EQ(Value(u"[S]\nk=\"\"", u"k"), u"");
}

TEST_F(IniTextTest, UnpairedQuotes_AreKept) {
    EXPECT_EQ(Value(u"[S]\nk=\"a'", u"k"), u"\"a'");
    EXPECT_EQ(Value(u"[S]\nk=\"", u"k"), u"\"");
    EXPECT_EQ(Value(u"[S]\nk=\"a\" b", u"k"), u"\"a\" b");
}

TEST_F(IniTextTest, EqualNames_FirstValueIsUsed) {
    EXPECT_EQ(Value(u"[S]\nk=1\nK=2\n[A]\n[s]\nk=3\nl=4", u"k"), u"1");
    EXPECT_EQ(Value(u"[S]\nk=1\n[A]\n[s]\nk=3\nl=4", u"l"), u"4");
}

TEST_F(IniTextTest, ValueMayContainSpecialCharacters) {
    EXPECT_EQ(Value(u"[S]\nk=a=b;c[d]", u"k"), u"a=b;c[d]");
    EXPECT_EQ(Value(u"[S]\nk=", u"k"), u"");
}

TEST_F(IniTextTest, CommentsAndUnreadableLinesAreSkipped) {
    constexpr StringView kText = u"k=0\n[S]\n;k=1\n  ; k=2\nwords\n=3\n[broken\nk=4\n";
    EXPECT_EQ(Value(kText, u"k"), u"4");
    EXPECT_EQ(Value(kText, u";k"), u"none");
    EXPECT_EQ(Value(kText, u"words"), u"none");
    EXPECT_EQ(Value(kText, u""), u"none");
}

TEST_F(IniTextTest, TextAfterASectionsBracket_IsIgnored) {
    EXPECT_EQ(Value(u"[S] ; the suite [x]\nk=1", u"k"), u"1");
}

TEST_F(IniTextTest, KeysAboveTheFirstSection_AreSkipped) {
    EXPECT_EQ(ValueIn(u"k=1\n[S]\n", u"", u"k"), u"none");
}

TEST_F(IniTextTest, Nul_IsAnOrdinaryCharacter) {
    EXPECT_EQ(Value(StringView(u"[S]\nk=a\0b\nl=2", 13), u"k"), String(u"a\0b", 3));
    EXPECT_EQ(Value(StringView(u"[S]\nk=a\0b\nl=2", 13), u"l"), u"2");
}

TEST_F(IniTextTest, EmptyTextHasNoSettings) {
    EXPECT_EQ(Value(u"", u"k"), u"none");
}

TEST_F(IniTextTest, VeryLongLine_IsRead) {
    const String longValue(2'000'000, u'x');
    EXPECT_TRUE(Value(u"[S]\nk=" + longValue + u"\nl=2", u"k") == longValue);
    EXPECT_EQ(Value(longValue + u"\n[S]\nl=2", u"l"), u"2");
}

TEST_F(IniTextTest, ManySectionsAndKeysAreFound) {
    String text;
    for (int i = 0; i < 20'000; ++i) {
        const String number = runtime::FromAscii(std::to_string(i));
        text += u"[s" + number + u"]\nk=" + number + u"\n[s0]\nk" + number + u"=v" + number + u"\n";
    }
    EXPECT_EQ(ValueIn(text, u"S19999", u"k"), u"19999");
    EXPECT_EQ(ValueIn(text, u"s0", u"K12345"), u"v12345");
}

}  // namespace
}  // namespace kernel_api::builtin
