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

TEST_F(SuiteBoxKeys, LetterThatNoKeyboardKeyGivesIsAnAccessKeyToo) {
    ChangedBox japanese([](ChangedBox& box) { box.Caption(2, u"&\u3042"); });
    EXPECT_EQ(japanese.Ask(8, {FocusIsOn(L"&Yes"), Character(0x3042)}), 8);
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
