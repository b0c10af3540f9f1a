// Tests the conversion between numbers and text, and the rounding to integers, by the rules of the classic runtime. The
// results must be exact to the last bit on every floating-point unit.
#include "runtime/Numbers.h"

#include <gtest/gtest.h>

#include <clocale>
#include <cmath>
#include <limits>

#include "tests/support/ErrorOf.h"

namespace runtime {
namespace {

using tests::ErrorOf;

TEST(Str, PutsABlankInPlaceOfAPlusSign) {
    EXPECT_EQ(Str(0), u" 0");
    EXPECT_EQ(Str(7), u" 7");
    EXPECT_EQ(Str(-3), u"-3");
}

TEST(Str, WritesTheWholeRange) {
    EXPECT_EQ(Str(2147483647), u" 2147483647");
    EXPECT_EQ(Str(std::numeric_limits<std::int32_t>::min()), u"-2147483648");
}

TEST(Val, ReadsDecimalNumbers) {
    EXPECT_EQ(Val(u"2457"), 2457);
    EXPECT_EQ(Val(u"-12.5"), -12.5);
    EXPECT_EQ(Val(u"+3"), 3);
    EXPECT_EQ(Val(u".5"), 0.5);
    EXPECT_EQ(Val(u"-.5"), -0.5);
    EXPECT_EQ(Val(u"7."), 7);
    EXPECT_EQ(Val(u"000120"), 120);
}

TEST(Val, WholeNumberThatADoubleCanHold_IsExact) {
    EXPECT_EQ(Val(u"999999999999999"), 999999999999999.0);
    EXPECT_EQ(Val(u"-9007199254740991"), -9007199254740991.0);
    EXPECT_EQ(Val(u"12.5E1"), 125);
}

TEST(Val, SkipsBlanksTabsAndLineFeedsAnywhere) {
    EXPECT_EQ(Val(u"    1615 198th Street N.E."), 1615198);
    EXPECT_EQ(Val(u" 0"), 0);
    EXPECT_EQ(Val(u" \t-\n1 . 5 E + 0 2 "), -150);
    EXPECT_EQ(Val(u"& H 1 0"), 16);
    EXPECT_EQ(Val(u"1\r2"), 1);
    EXPECT_EQ(Val(u"1\u00A02"), 1);
}

TEST(Val, StopsAtTheFirstCharacterThatCannotContinueTheNumber) {
    EXPECT_EQ(Val(u"24 and 57"), 24);
    EXPECT_EQ(Val(u"1,5"), 1);
    EXPECT_EQ(Val(u"1.2.3"), 1.2);
    EXPECT_EQ(Val(u"50%"), 50);
    EXPECT_EQ(Val(u"$5"), 0);
    EXPECT_EQ(Val(u"1-2"), 1);
    EXPECT_EQ(Val(String(u"1\0"
                         u"2",
                         3)),
              1);
}

TEST(Val, IsZeroWithoutANumber) {
    for (const StringView text : {u"", u" ", u"-", u"+", u".", u"--5", u"+-5", u"EDITOR", u"E5", u".E5", u"-D", u"&",
                                  u"&H", u"&O", u"&G", u"&8", u"\u0661", u"\uFF11"}) {
        EXPECT_EQ(Val(text), 0) << ToUtf8(text);
    }
}

TEST(Val, ReadsExponentsWithEOrD) {
    EXPECT_EQ(Val(u"1E3"), 1000);
    EXPECT_EQ(Val(u"1e+3"), 1000);
    EXPECT_EQ(Val(u"25D-1"), 2.5);
    EXPECT_EQ(Val(u"1d2"), 100);
}

TEST(Val, IgnoresAnExponentWithoutDigits) {
    EXPECT_EQ(Val(u"2 dogs"), 2);
    EXPECT_EQ(Val(u"3E"), 3);
    EXPECT_EQ(Val(u"3E-"), 3);
    EXPECT_EQ(Val(u"3E--2"), 3);
    EXPECT_EQ(Val(u"3EE2"), 3);
}

TEST(Val, ReadsHexadecimalAndOctal) {
    EXPECT_EQ(Val(u"&H1f"), 31);
    EXPECT_EQ(Val(u"&hFFG"), 255);
    EXPECT_EQ(Val(u"&hffg"), 255);
    EXPECT_EQ(Val(u"&O17"), 15);
    EXPECT_EQ(Val(u"&o178"), 15);
    EXPECT_EQ(Val(u"&17"), 15);
    EXPECT_EQ(Val(u"-&H10"), -16);
    EXPECT_EQ(Val(u"&H-1"), 0);
}

TEST(Val, HexAndOctal_AreSigned16BitOrSigned32Bit) {
    EXPECT_EQ(Val(u"&H7FFF"), 32767);
    EXPECT_EQ(Val(u"&H8000"), -32768);
    EXPECT_EQ(Val(u"&HFFFF"), -1);
    EXPECT_EQ(Val(u"&H10000"), 65536);
    EXPECT_EQ(Val(u"&H7FFFFFFF"), 2147483647);
    EXPECT_EQ(Val(u"&H80000000"), -2147483648.0);
    EXPECT_EQ(Val(u"&HFFFFFFFF"), -1);
    EXPECT_EQ(Val(u"&O177777"), -1);
    EXPECT_EQ(Val(u"&O200000"), 65536);
    EXPECT_EQ(Val(u"&O37777777777"), -1);
}

TEST(Val, AmpersandSuffix_KeepsSixteenBitNumbersPositive) {
    EXPECT_EQ(Val(u"&HFFFF&"), 65535);
    EXPECT_EQ(Val(u"&H8000&"), 32768);
    EXPECT_EQ(Val(u"&O177777&"), 65535);
    EXPECT_EQ(Val(u"&HFFFF%"), -1);
}

TEST(Val, HexOrOctalBeyond32Bits_IsOverflow) {
    EXPECT_EQ(ErrorOf([] { Val(u"&H100000000"); }), kOverflow);
    EXPECT_EQ(ErrorOf([] { Val(u"&O40000000000"); }), kOverflow);
    EXPECT_EQ(Val(u"&H0000000000000010"), 16);
}

TEST(Val, RaisesOverflowBeyondTheLargestDouble) {
    EXPECT_EQ(ErrorOf([] { Val(u"1E400"); }), kOverflow);
    EXPECT_EQ(ErrorOf([] { Val(u"-1E309"); }), kOverflow);
    EXPECT_EQ(ErrorOf([] { Val(u"1.7976931348623159E308"); }), kOverflow);
    EXPECT_EQ(ErrorOf([] { Val(u"1E99999999999999999999999"); }), kOverflow);
    EXPECT_EQ(Val(u"1.7976931348623157E308"), std::numeric_limits<double>::max());
}

TEST(Val, RoundsToZeroBelowTheSmallestDouble) {
    EXPECT_EQ(Val(u"1E-400"), 0);
    EXPECT_EQ(Val(u"2E-324"), 0);
    EXPECT_EQ(Val(u"-1E-99999999999999999999999"), 0);
    EXPECT_EQ(Val(u"0E99999"), 0);
    EXPECT_EQ(Val(u"4.9E-324"), std::numeric_limits<double>::denorm_min());
}

TEST(Val, NeverReturnsNegativeZero) {
    EXPECT_FALSE(std::signbit(Val(u"-0")));
    EXPECT_FALSE(std::signbit(Val(u"-1E-400")));
}

TEST(Val, RoundsToTheNearestDouble) {
    EXPECT_EQ(Val(u"9007199254740993"), 9007199254740992.0);
    EXPECT_EQ(Val(u"9007199254740993.0000000000000000000000000000001"), 9007199254740994.0);
    EXPECT_EQ(Val(u"1E23"), 0x1.52d02c7e14af6p+76);
}

// An x87 unit that multiplied the digits by the power of ten would round the product twice: to 64 bits, then to 53
// bits. The last bit would be wrong.
TEST(Val, RoundsOnlyOnceOnEveryFloatingPointUnit) {
    EXPECT_EQ(Val(u"1143506246534187E14"), 0x1.717c9ea7b72e7p+96);
    EXPECT_EQ(Val(u"6008520440604289E13"), 0x1.844aa1e320717p+95);
    EXPECT_EQ(Val(u"377224343200080E18"), 0x1.2993d97473537p+108);
}

TEST(Val, DigitsAfterThe768th_AffectTheRounding) {
    const String half = u"9007199254740993." + String(2000, u'0');
    EXPECT_EQ(Val(half), 9007199254740992.0);
    EXPECT_EQ(Val(half + u"1"), 9007199254740994.0);
    EXPECT_EQ(Val(half + u"10"), 9007199254740994.0);
}

TEST(Val, ReadsAMillionDigits) {
    constexpr std::size_t kMany = 1'000'000;
    EXPECT_EQ(Val(u"0." + String(kMany, u'3')), 1.0 / 3);
    EXPECT_EQ(Val(String(kMany, u'0') + u"12"), 12);
    EXPECT_EQ(Val(u"." + String(kMany, u'0') + u"5E1000001"), 5);
    EXPECT_EQ(Val(u"5" + String(kMany, u'0') + u"E-1000000"), 5);
    EXPECT_EQ(Val(u"1E" + String(kMany, u'0') + u"2"), 100);
    EXPECT_EQ(ErrorOf([] { Val(String(kMany, u'9')); }), kOverflow);
}

TEST(Val, DoesNotFollowTheLocale) {
    const std::string before = std::setlocale(LC_ALL, nullptr);
    if (!std::setlocale(LC_ALL, "de_DE.UTF-8") && !std::setlocale(LC_ALL, "German")) {
        GTEST_SKIP() << "no locale with a decimal comma here";
    }
    EXPECT_EQ(Val(u"1.5"), 1.5);
    EXPECT_EQ(Val(u"1,5"), 1);
    std::setlocale(LC_ALL, before.c_str());
}

TEST(ToInt32, RoundsHalvesToEven) {
    EXPECT_EQ(ToInt32(0.5), 0);
    EXPECT_EQ(ToInt32(1.5), 2);
    EXPECT_EQ(ToInt32(2.5), 2);
    EXPECT_EQ(ToInt32(-0.5), 0);
    EXPECT_EQ(ToInt32(-1.5), -2);
    EXPECT_EQ(ToInt32(-2.5), -2);
}

TEST(ToInt32, RoundsEverythingElseToTheNearest) {
    EXPECT_EQ(ToInt32(3.0), 3);
    EXPECT_EQ(ToInt32(2.4999999999999996), 2);
    EXPECT_EQ(ToInt32(2.5000000000000004), 3);
    EXPECT_EQ(ToInt32(-2.6), -3);
    EXPECT_EQ(ToInt32(0.49999999999999994), 0);
}

TEST(ToInt32, RaisesOverflowOutsideTheRange) {
    EXPECT_EQ(ToInt32(2147483647.4), 2147483647);
    EXPECT_EQ(ToInt32(-2147483648.5), std::numeric_limits<std::int32_t>::min());
    EXPECT_EQ(ErrorOf([] { ToInt32(2147483647.5); }), kOverflow);
    EXPECT_EQ(ErrorOf([] { ToInt32(-2147483648.6); }), kOverflow);
    EXPECT_EQ(ErrorOf([] { ToInt32(1e300); }), kOverflow);
    EXPECT_EQ(ErrorOf([] { ToInt32(std::numeric_limits<double>::infinity()); }), kOverflow);
    EXPECT_EQ(ErrorOf([] { ToInt32(-std::numeric_limits<double>::infinity()); }), kOverflow);
    EXPECT_EQ(ErrorOf([] { ToInt32(std::numeric_limits<double>::quiet_NaN()); }), kOverflow);
}

}  // namespace
}  // namespace runtime
