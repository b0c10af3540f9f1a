// The user-interface font as it reaches the windows of the suite's message box.
#include <gtest/gtest.h>

#include "services/ProcessValues.h"
#include "tests/messagebox/SuiteBoxTest.h"

namespace tests {
namespace {

class SuiteBoxFont : public SuiteBoxTest {
 protected:
    ~SuiteBoxFont() override { services::processValues = {}; }
};

LOGFONTW FontOf(HWND window) {
    LOGFONTW font{};
    const auto handle = reinterpret_cast<HFONT>(SendMessageW(window, WM_GETFONT, 0, 0));
    EXPECT_NE(GetObjectW(handle, sizeof font, &font), 0);
    return font;
}

TEST_F(SuiteBoxFont, IsTheProcesssOnLabelAndButtons) {
    services::processValues.uiFont = {u"Tahoma", 12, GREEK_CHARSET};
    const auto look = [](HWND box) {
        for (const HWND window : {LabelOf(box), ButtonOf(box, L"&Yes"), ButtonOf(box, L"Cancel")}) {
            const LOGFONTW font = FontOf(window);
            EXPECT_STREQ(font.lfFaceName, L"Tahoma");
            EXPECT_EQ(font.lfHeight, -16);  // 12 points at 96 dots an inch
            EXPECT_EQ(font.lfCharSet, GREEK_CHARSET);
            EXPECT_EQ(font.lfWeight, FW_NORMAL);
        }
    };
    EXPECT_EQ(Ask(8, {Do(look), Keys({VK_ESCAPE})}), 2);
}

TEST_F(SuiteBoxFont, IsTheDesignsWhileNoneWasChosen) {
    const auto look = [](HWND box) {
        const LOGFONTW font = FontOf(ButtonOf(box, L"&Yes"));
        EXPECT_STREQ(font.lfFaceName, L"MS Sans Serif");
        EXPECT_EQ(font.lfHeight, -11);
    };
    EXPECT_EQ(Ask(8, {Do(look), Keys({VK_ESCAPE})}), 2);
}

TEST_F(SuiteBoxFont, KeyboardStillWalksTheButtons) {
    services::processValues.uiFont = {u"Tahoma", 12, DEFAULT_CHARSET};
    EXPECT_EQ(Ask(8, {FocusIsOn(L"&Yes"), Keys({VK_TAB}), FocusIsOn(L"&No"), Keys({'T'})}), 8);
    ExpectNothingIsLeft();
}

}  // namespace
}  // namespace tests
