// Tests the layout of the suite's message box in pixels, and the box's use of system objects. All numbers are for 96
// DPI. One pixel has 15 twips.
#include <gtest/gtest.h>

#include "tests/messagebox/SuiteBoxTest.h"
#include "tests/windows/LiveObjects.h"
#include "tests/windows/Places.h"
#include "tests/windows/WindowTexts.h"

namespace tests {
namespace {

using runtime::String;

/// Returns the size of `text` in the font of the box's buttons and label.
SIZE SizeIn(HWND box, runtime::StringView text) {
    const HDC context = GetDC(box);
    const HGDIOBJ former = SelectObject(context, FontOf(ButtonOf(box, L"&Yes")));
    SIZE size{};
    GetTextExtentPoint32W(context, runtime::win32::Wide(text.data()), static_cast<int>(text.size()), &size);
    SelectObject(context, former);
    ReleaseDC(box, context);
    return size;
}

class SuiteBoxLayout : public SuiteBoxTest {
 protected:
    /// Inspects the open box, then closes it.
    void Look(runtime::StringView prompt, const std::function<void(HWND box)>& look) {
        EXPECT_EQ(Ask(8, {Do(look), Keys({VK_ESCAPE})}, prompt), 2);
    }
};

void ExpectClient(HWND box, long width, long height) {
    RECT client{};
    GetClientRect(box, &client);
    EXPECT_EQ(client.right, width);
    EXPECT_EQ(client.bottom, height);
}

TEST_F(SuiteBoxLayout, ShortPrompt_KeepsTheDesignedLayout) {
    Look(u"Overwrite?", [](HWND box) {
        ExpectClient(box, 339, 95);
        ExpectCentred(box);
        EXPECT_EQ(PlaceIn(box, ButtonOf(box, L"&Yes")), (Place{12, 61, 75, 23}));
        EXPECT_EQ(PlaceIn(box, ButtonOf(box, L"&No")), (Place{93, 61, 75, 23}));
        EXPECT_EQ(PlaceIn(box, ButtonOf(box, L"Yes &To All")), (Place{174, 61, 75, 23}));
        EXPECT_EQ(PlaceIn(box, ButtonOf(box, L"Cancel")), (Place{255, 61, 75, 23}));
        EXPECT_EQ(PlaceIn(box, FindWindowExW(box, nullptr, L"STATIC", nullptr)), (Place{12, 12, 32, 32}));
        EXPECT_EQ(PlaceIn(box, LabelOf(box)), (Place{63, 16, 247, 26}));
        EXPECT_EQ(TextOf(box), u"Title");
    });
}

TEST_F(SuiteBoxLayout, WidePrompt_WidensTheBoxAndCentresTheButtons) {
    const String prompt(80, u'm');
    Look(prompt, [&](HWND box) {
        const long width = SizeIn(box, prompt).cx;
        ASSERT_GT(width, 247);
        // The label's original width is 3700 twips, or 246 2/3 pixels.
        EXPECT_EQ(PlaceIn(box, LabelOf(box)), (Place{63, 16, width, 26}));
        ExpectClient(box, width + 92, 95);
        ExpectCentred(box);
        EXPECT_EQ(PlaceIn(box, ButtonOf(box, L"&Yes")), (Place{width / 2 - 111, 61, 75, 23}));
        EXPECT_EQ(PlaceIn(box, ButtonOf(box, L"Cancel")), (Place{width / 2 + 132, 61, 75, 23}));
        EXPECT_EQ(PlaceIn(box, FindWindowExW(box, nullptr, L"STATIC", nullptr)), (Place{12, 12, 32, 32}));
    });
}

TEST_F(SuiteBoxLayout, UnusualCharacters_AreShownUnchanged) {
    const String prompts[] = {
        u"",
        u"Save & quit && \"%d%s\" <b> '{ENTER}'",
        u"a\tb\t\tc",
        u"\u05D0\u05D1\u05D2 \u202Eabc\u202C \u0645\u0631\u062D\u0628\u0627",
        u"\U0001F600\U0001F468\u200D\U0001F469\u200D\U0001F467 \xD800 \xDC00",
        u"\u65E5\u672C\u8A9E\u306E\u8CEA\u554F",
    };
    for (const String& prompt : prompts) {
        Look(prompt, [&](HWND box) {
            EXPECT_EQ(TextOf(LabelOf(box)), prompt);
            UpdateWindow(LabelOf(box));
        });
    }
}

TEST_F(SuiteBoxLayout, PromptOfAMillionCharacters_IsShownAndAnswered) {
    constexpr std::size_t kMegabyte = 1 << 20;
    String words;
    String lines;
    while (words.size() < kMegabyte) words += u"word ";
    while (lines.size() < kMegabyte) lines += String(78, u'x') + u"\r\n";
    for (const String& prompt : {words, lines, String(kMegabyte, u'm'), String(kMegabyte, u'\n')}) {
        const auto look = [&](HWND box) {
            EXPECT_EQ(TextOf(LabelOf(box)).size(), prompt.size());
            ExpectCentred(box);
        };
        EXPECT_EQ(Ask(8 + 0x100, {Do(look), FocusIsOn(L"&No"), Keys({VK_RETURN})}, prompt), 7);
    }
    ExpectNothingIsLeft();
}

TEST_F(SuiteBoxLayout, ManyQuestions_LeakNoSystemObjects) {
    ExpectNothingStays(2000, [this](int) { ASSERT_EQ(AskQuickly(), 6); });
    ExpectNothingIsLeft();
}

}  // namespace
}  // namespace tests
