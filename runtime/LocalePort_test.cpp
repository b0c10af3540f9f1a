// Tests every LocalePort. Runs with PlainLocale on every platform, and with the system's locale on Windows.
#include "runtime/LocalePort_test.h"

namespace runtime {
namespace {

TEST_P(LocalePortTest, AsciiText_IsConvertedUnchanged) {
    EXPECT_EQ(locale_->ToAnsi(u"K4TBACKPROCESS, 0"), "K4TBACKPROCESS, 0");
    EXPECT_EQ(locale_->FromAnsi("K4TBACKPROCESS, 0"), u"K4TBACKPROCESS, 0");
    EXPECT_EQ(locale_->ToAnsi(u""), "");
    EXPECT_EQ(locale_->FromAnsi(""), u"");
}

TEST_P(LocalePortTest, WesternCharacters_HaveTheirCodePageBytes) {
    EXPECT_EQ(locale_->ToAnsi(u"\u00E4\u00FF\u20AC\u2122"), "\xE4\xFF\x80\x99");
    EXPECT_EQ(locale_->FromAnsi("\xE4\xFF\x80\x99"), u"\u00E4\u00FF\u20AC\u2122");
}

TEST_P(LocalePortTest, CodeUnitWithoutCounterpart_BecomesAQuestionMark) {
    EXPECT_EQ(locale_->ToAnsi(u"a\u4E2D\u0416z"), "a??z");
    EXPECT_EQ(locale_->ToAnsi(u"a\xD83D\xDE00z"), "a??z");
    EXPECT_EQ(locale_->ToAnsi(u"\xD800"), "?");
}

TEST_P(LocalePortTest, Nul_IsConvertedLikeOtherCharacters) {
    EXPECT_EQ(locale_->ToAnsi(StringView(u"a\0b\0", 4)), std::string("a\0b\0", 4));
    EXPECT_EQ(locale_->FromAnsi(std::string_view("a\0b\0", 4)), String(u"a\0b\0", 4));
}

TEST_P(LocalePortTest, EveryByte_RoundTrips) {
    std::string bytes;
    for (int value = 0; value < 256; ++value) bytes.push_back(static_cast<char>(value));
    EXPECT_EQ(locale_->ToAnsi(locale_->FromAnsi(bytes)), bytes);
}

TEST_P(LocalePortTest, LongText_IsConverted) {
    const String text(1'000'000, u'\u00E4');
    const std::string bytes(1'000'000, '\xE4');
    EXPECT_TRUE(locale_->ToAnsi(text) == bytes);
    EXPECT_TRUE(locale_->FromAnsi(bytes) == text);
    EXPECT_TRUE(locale_->UpperCase(text) == String(1'000'000, u'\u00C4'));
}

TEST_P(LocalePortTest, LocalesOfSystemAndUserAreKnown) {
    EXPECT_NE(locale_->SystemDefaultLcid(), 0);
    EXPECT_NE(locale_->UserDefaultLcid(), 0);
    EXPECT_EQ(locale_->CharsetOf(locale_->UserDefaultLcid()), std::int16_t{0});
}

TEST_P(LocalePortTest, LocaleThatDoesNotExistHasNoCharacterSet) {
    EXPECT_EQ(locale_->CharsetOf(0x3BFF), std::nullopt);
}

TEST_P(LocalePortTest, OnlyLetters_ChangeCase) {
    EXPECT_EQ(locale_->UpperCase(u"c:\\cad_1 zZ"), u"C:\\CAD_1 ZZ");
    EXPECT_EQ(locale_->LowerCase(u"/SYS:C:\\Cad@[`{"), u"/sys:c:\\cad@[`{");
    EXPECT_EQ(locale_->UpperCase(u"i"), u"I");
    EXPECT_EQ(locale_->LowerCase(u"I"), u"i");
}

TEST_P(LocalePortTest, LettersOfOtherAlphabets_ChangeCase) {
    const String lower = u"\u00E4\u00F6\u00FC\u00FE\u00FF \u03AC\u03AF\u03B1\u03C9\u03CC \u0430\u044F\u0451";
    const String upper = u"\u00C4\u00D6\u00DC\u00DE\u0178 \u0386\u038A\u0391\u03A9\u038C \u0410\u042F\u0401";
    EXPECT_EQ(locale_->UpperCase(lower), upper);
    EXPECT_EQ(locale_->LowerCase(upper), lower);
}

TEST_P(LocalePortTest, CaseChange_KeepsNulsLoneSurrogatesAndTheLength) {
    EXPECT_EQ(locale_->UpperCase(u"stra\u00DFe"), u"STRA\u00DFE");
    EXPECT_EQ(locale_->UpperCase(StringView(u"a\0b", 3)), String(u"A\0B", 3));
    EXPECT_EQ(locale_->LowerCase(u"A\xD800\u00D7\u00F7"), u"a\xD800\u00D7\u00F7");
    EXPECT_EQ(locale_->UpperCase(u""), u"");
}

}  // namespace
}  // namespace runtime
