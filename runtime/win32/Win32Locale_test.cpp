// Runs the tests of LocalePort with the system's locale if the system's code page is 1252. Also tests results that
// depend on the system.
#include "runtime/win32/Win32Locale.h"

#include "runtime/LocalePort_test.h"
#include "runtime/win32/WindowsHeaders.h"

namespace runtime::win32 {
namespace {

std::unique_ptr<LocalePort> MakeWin32Locale() {
    if (GetACP() != 1252) return nullptr;
    return std::make_unique<Win32Locale>();
}
INSTANTIATE_TEST_SUITE_P(Windows, LocalePortTest, testing::Values(&MakeWin32Locale));

TEST(Win32Locale, CharacterNotInCodePage_BecomesASimilarCharacter) {
    if (GetACP() != 1252) GTEST_SKIP() << "the system's code page is not 1252";
    EXPECT_EQ(Win32Locale().ToAnsi(u"\u0101"), "a");
}

TEST(Win32Locale, PlainLetters_ChangeCaseByTheRuleOfTheFileSystem) {
    EXPECT_EQ(Win32Locale().UpperCase(u"c:\\sis"), u"C:\\SIS");
    EXPECT_EQ(Win32Locale().LowerCase(u"C:\\SIS"), u"c:\\sis");
}

TEST(Win32Locale, CharacterSetFollowsTheLocale) {
    Win32Locale locale;
    EXPECT_EQ(locale.CharsetOf(0x0407), std::int16_t{0});    // German
    EXPECT_EQ(locale.CharsetOf(0x0408), std::int16_t{161});  // Greek
    EXPECT_EQ(locale.CharsetOf(0x0419), std::int16_t{204});  // Russian
    EXPECT_EQ(locale.CharsetOf(0x0411), std::int16_t{128});  // Japanese
    EXPECT_EQ(locale.CharsetOf(0x0412), std::int16_t{129});  // Korean
    EXPECT_EQ(locale.CharsetOf(0x0404), std::int16_t{136});  // Chinese (Taiwan)
    EXPECT_EQ(locale.CharsetOf(0x0804), std::int16_t{134});  // Chinese (China)
}

TEST(Win32Locale, DoubleByteText_RoundTrips) {
    if (GetACP() != 932) GTEST_SKIP() << "the system's code page is not 932";
    EXPECT_EQ(Win32Locale().ToAnsi(u"\u8868z"), "\x95\\z");
    EXPECT_EQ(Win32Locale().FromAnsi("\x95\\z"), u"\u8868z");
}

}  // namespace
}  // namespace runtime::win32
