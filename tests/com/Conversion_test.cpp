// Tests the arguments of late-bound calls. Some values are converted. Others are refused with an error code.
#include "tests/com/ComTest.h"
#include "tests/com/DefaultProperty.h"

namespace tests::com {
namespace {

using testing::ElementsAre;

class Conversion : public ComTest {
 protected:
    /// Returns the test double's log entry for NotifyMe with `command`, or the error code and the argument's index.
    std::string Notified(VARIANT command) {
        TheDouble().log.clear();
        const Outcome outcome = Invoke(instance.Get(), kNotifyMe, DISPATCH_METHOD, {command, Missing()});
        if (outcome.result != S_OK) return Hex(outcome.result) + " at " + std::to_string(outcome.badArgument);
        return TheDouble().log.at(0);
    }
    /// Returns the test double's log entry for Load with `mode`, or the error code and the argument's index.
    std::string Loaded(VARIANT mode) {
        TheDouble().log.clear();
        const Outcome outcome = Invoke(instance.Get(), kLoad, DISPATCH_METHOD, {mode});
        if (outcome.result != S_OK) return Hex(outcome.result) + " at " + std::to_string(outcome.badArgument);
        return TheDouble().log.at(0);
    }

    ComPtr<_clsQmxBackProcess> instance = MakeInstance();
};

constexpr char kMismatchAt0[] = "0x80020005 at 0";
constexpr char kOverflowAt0[] = "0x8002000A at 0";

TEST_F(Conversion, Number_BecomesText) {
    EXPECT_EQ("notify [] [-7]", Notified(Number(-7)));
    VARIANT real = OfType(VT_R8);
    real.dblVal = 1.5;
    EXPECT_EQ("notify [] [1.5]", Notified(real));
}

TEST_F(Conversion, Boolean_BecomesTrueOrFalse) {
    VARIANT flag = OfType(VT_BOOL);
    EXPECT_EQ("notify [] [False]", Notified(flag));
    flag.boolVal = VARIANT_TRUE;
    EXPECT_EQ("notify [] [True]", Notified(flag));
    EXPECT_EQ("load -1", Loaded(flag));
}

TEST_F(Conversion, Date_BecomesTextInTheCallersLocale) {
    VARIANT date = OfType(VT_DATE);
    date.date = 36526;  // 1 January 2000
    EXPECT_EQ("notify [] [1/1/2000]", Notified(date));
}

TEST_F(Conversion, Empty_BecomesEmptyTextOrZero) {
    EXPECT_EQ("notify [] []", Notified(OfType(VT_EMPTY)));
    EXPECT_EQ("load 0", Loaded(OfType(VT_EMPTY)));
}

TEST_F(Conversion, ValueThatCannotBeConverted_IsRefused) {
    EXPECT_EQ(kMismatchAt0, Notified(OfType(VT_NULL)));
    EXPECT_EQ(kMismatchAt0, Loaded(OfType(VT_NULL)));
    VARIANT error = OfType(VT_ERROR);
    error.scode = E_FAIL;
    EXPECT_EQ(kMismatchAt0, Notified(error));
    EXPECT_EQ(kMismatchAt0, Notified(OfType(VT_DISPATCH)));
    EXPECT_EQ(kMismatchAt0, Notified(OfType(VT_UNKNOWN)));
    EXPECT_EQ(kMismatchAt0, Notified(OfType(VT_ARRAY | VT_UI1)));
}

TEST_F(Conversion, Half_IsRoundedToEven) {
    VARIANT real = OfType(VT_R8);
    real.dblVal = 2.5;
    EXPECT_EQ("load 2", Loaded(real));
    real.dblVal = 3.5;
    EXPECT_EQ("load 4", Loaded(real));
}

TEST_F(Conversion, OverflowAndMismatch_HaveDifferentCodes) {
    VARIANT large = OfType(VT_I4);
    large.lVal = 70000;
    EXPECT_EQ(kOverflowAt0, Loaded(large));
    const Bstr word(u"abc");
    EXPECT_EQ(kMismatchAt0, Loaded(Text(word)));
    const Bstr digits(u" 12 ");
    EXPECT_EQ("load 12", Loaded(Text(digits)));
}

TEST_F(Conversion, Reference_IsConvertedLikeItsValue) {
    Bstr text(u"by reference");
    EXPECT_EQ("notify [] [by reference]", Notified(ByReference(text.Address())));
    VARIANT plain = Number(3);
    EXPECT_EQ("load 3", Loaded(ByReference(&plain)));
    VARIANT nested = ByReference(text.Address());
    EXPECT_EQ("notify [] [by reference]", Notified(ByReference(&nested)));
    VARIANT nothing = OfType(VT_BSTR | VT_BYREF);
    EXPECT_EQ("0x80004003 at 0", Notified(nothing));
}

TEST_F(Conversion, NulsAndLoneSurrogates_ArriveUnchanged) {
    const String text = {u'a', u'\0', char16_t{0xD800}, u'b'};
    Notified(Text(Bstr(text)));
    EXPECT_EQ(TheDouble().lastCommand, text);
}

TEST_F(Conversion, Object_IsReadThroughItsDefaultProperty) {
    Variant inner(StringView(u"of the object"));
    const auto object = DefaultProperty::Make(inner.Get());
    VARIANT argument = OfType(VT_DISPATCH);
    argument.pdispVal = object.Get();
    EXPECT_EQ("notify [] [of the object]", Notified(argument));
    VARIANT unknown = OfType(VT_UNKNOWN);
    unknown.punkVal = object.Get();
    EXPECT_EQ("notify [] [of the object]", Notified(unknown));
}

TEST_F(Conversion, ObjectThatReturnsItself_IsRefused) {
    const auto object = DefaultProperty::Make(OfType(VT_EMPTY));
    object->answersItself = true;
    VARIANT argument = OfType(VT_DISPATCH);
    argument.pdispVal = object.Get();
    EXPECT_EQ(kMismatchAt0, Notified(argument));
}

TEST_F(Conversion, ObjectWhoseDefaultPropertyFails_IsRefused) {
    const auto object = DefaultProperty::Make(OfType(VT_EMPTY));
    object->failure = DISP_E_EXCEPTION;
    VARIANT argument = OfType(VT_DISPATCH);
    argument.pdispVal = object.Get();
    EXPECT_EQ(kMismatchAt0, Notified(argument));
}

TEST_F(Conversion, FailedCall_DoesNotChangeTheCallersVariables) {
    Bstr command(u"FAIL 5|no");
    EXPECT_EQ("0x80020009 at 77", Notified(ByReference(command.Address())));
    EXPECT_EQ(u"FAIL 5|no", command.Text());
}

}  // namespace
}  // namespace tests::com
