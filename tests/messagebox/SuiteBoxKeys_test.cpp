// The keys of the suite's message box where they are not the plain ones: held keys, translated captions, other input
// methods, combinations that mean nothing to it.
#include <gtest/gtest.h>

#include "tests/messagebox/SuiteBoxTest.h"

namespace tests {
namespace {

class SuiteBoxKeys : public SuiteBoxTest {};

TEST_F(SuiteBoxKeys, HeldSinceBeforeItOpenedAnswerNothing) {
    for (const WORD key : {VK_RETURN, VK_SPACE, VK_ESCAPE}) {
        EXPECT_EQ(Ask(8 + 0x100, {FocusIsOn(L"&No"), Repeated(key), Repeated(key), Keys({VK_TAB}),
                                  FocusIsOn(L"Yes &To All"), Keys({VK_RETURN})}),
                  8)
            << key;
        ExpectNothingIsLeft();
    }
}

TEST_F(SuiteBoxKeys, TranslatedCaptionsPressByTheirOwnLetters) {
    ChangedBox german([](ChangedBox& box) {
        box.Caption(0, u"&Ja");
        box.Caption(1, u"N&ein");
    });
    EXPECT_EQ(german.Ask(8 + 0x300, {FocusIsOn(L"Cancel"), Keys({'J'})}), 6);
    EXPECT_EQ(german.Ask(8 + 0x300, {FocusIsOn(L"Cancel"), Keys({'E'})}), 7);
    EXPECT_EQ(german.Ask(8 + 0x100, {FocusIsOn(L"N&ein"), Keys({'Y'}), Keys({'N'}), Keys({VK_TAB}),
                                     FocusIsOn(L"Yes &To All"), Keys({VK_RETURN})}),
              8);
    ExpectNothingIsLeft();
}

TEST_F(SuiteBoxKeys, LetterThatNoKeyboardKeyGivesIsAnAccessKeyToo) {
    ChangedBox japanese([](ChangedBox& box) { box.Caption(2, u"&\u3042"); });
    EXPECT_EQ(japanese.Ask(8, {FocusIsOn(L"&Yes"), Character(0x3042)}), 8);
    ExpectNothingIsLeft();
}

TEST_F(SuiteBoxKeys, LetterOfSeveralButtonsWalksAmongThemAndPressesNone) {
    ChangedBox doubtful([](ChangedBox& box) {
        box.Caption(0, u"&Same");
        box.Caption(2, u"The &same");
    });
    EXPECT_EQ(doubtful.Ask(8 + 0x100, {FocusIsOn(L"&No"), Keys({'S'}), FocusIsOn(L"The &same"), Keys({'S'}),
                                       FocusIsOn(L"&Same"), Keys({'S'}), FocusIsOn(L"The &same"), Keys({VK_RETURN})}),
              8);
    ExpectNothingIsLeft();
}

TEST_F(SuiteBoxKeys, TabWalksWithAllTabStopsOff) {
    ChangedBox stopless([](ChangedBox& box) {
        for (const auto& control : box.Controls())
            if (control->TakesFocus()) control->SetTabStop(false);
    });
    EXPECT_EQ(stopless.Ask(8 + 0x200, {FocusIsOn(L"Yes &To All"), Keys({VK_TAB}), FocusIsOn(L"Cancel"), Keys({VK_TAB}),
                                       FocusIsOn(L"&Yes"), Keys({VK_SHIFT, VK_TAB}), FocusIsOn(L"Cancel"),
                                       Keys({VK_TAB}), Keys({VK_TAB}), FocusIsOn(L"&No"), Keys({VK_RETURN})}),
              7);
    ExpectNothingIsLeft();
}

TEST_F(SuiteBoxKeys, CombinationsThatMeanNothingLeaveItAsItIs) {
    // Control with I gives the character of the Tab key, with M that of Enter; Control with Alt is AltGr.
    EXPECT_EQ(Ask(8 + 0x100, {FocusIsOn(L"&No"), Keys({VK_CONTROL, 'Y'}), Keys({VK_CONTROL, 'I'}),
                              Keys({VK_CONTROL, 'M'}), Keys({VK_CONTROL, VK_MENU, 'Y'}),
                              Keys({VK_CONTROL, VK_MENU, 'E'}), Character(0x20AC), Keys({VK_CONTROL, VK_RETURN}),
                              FocusIsOn(L"&No"), Keys({VK_TAB}), FocusIsOn(L"Yes &To All"), Keys({VK_RETURN})}),
              8);
    ExpectNothingIsLeft();
}

}  // namespace
}  // namespace tests
