// Tests unusual keys in the suite's message box: held keys, keys for translated captions, characters of input methods,
// and combinations without a meaning.
#include <gtest/gtest.h>

#include "tests/messagebox/SuiteBoxTest.h"

namespace tests {
namespace {

class SuiteBoxKeys : public SuiteBoxTest {};

TEST_F(SuiteBoxKeys, KeyHeldBeforeTheBoxOpens_IsIgnored) {
    for (const WORD key : {VK_RETURN, VK_SPACE, VK_ESCAPE}) {
        EXPECT_EQ(Ask(8 + 0x100, {FocusIsOn(L"&No"), Repeated(key), Repeated(key), Keys({VK_TAB}),
                                  FocusIsOn(L"Yes &To All"), Keys({VK_RETURN})}),
                  8)
            << key;
        ExpectNothingIsLeft();
    }
}

TEST_F(SuiteBoxKeys, CharacterWithoutAKey_CanBeAnAccessKey) {
    ChangedBox japanese([](ChangedBox& box) { box.Caption(2, u"&\u3042"); });
    EXPECT_EQ(japanese.Ask(8, {FocusIsOn(L"&Yes"), Character(0x3042)}), 8);
    ExpectNothingIsLeft();
}

TEST_F(SuiteBoxKeys, CombinationWithoutAMeaning_IsIgnored) {
    // Control+I produces the character of Tab, and Control+M produces the character of Enter. Control+Alt is AltGr.
    EXPECT_EQ(Ask(8 + 0x100, {FocusIsOn(L"&No"), Keys({VK_CONTROL, 'Y'}), Keys({VK_CONTROL, 'I'}),
                              Keys({VK_CONTROL, 'M'}), Keys({VK_CONTROL, VK_MENU, 'Y'}),
                              Keys({VK_CONTROL, VK_MENU, 'E'}), Character(0x20AC), Keys({VK_CONTROL, VK_RETURN}),
                              FocusIsOn(L"&No"), Keys({VK_TAB}), FocusIsOn(L"Yes &To All"), Keys({VK_RETURN})}),
              8);
    ExpectNothingIsLeft();
}

}  // namespace
}  // namespace tests
