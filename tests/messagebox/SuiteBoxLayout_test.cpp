// The suite's own message box in pixels, and what it costs the system. All numbers are for 96 DPI: 15 twips a pixel.
#include <gtest/gtest.h>

#include <algorithm>

#include "tests/messagebox/LiveObjects.h"
#include "tests/messagebox/SuiteBoxTest.h"

namespace tests {
namespace {

using runtime::String;

struct Place {
    long left;
    long top;
    long width;
    long height;
    bool operator==(const Place&) const = default;
};

void PrintTo(const Place& place, std::ostream* out) {
    *out << place.left << ", " << place.top << ", " << place.width << " x " << place.height;
}

Place PlaceOf(HWND box, HWND child) {
    RECT rect{};
    GetWindowRect(child, &rect);
    POINT corner{rect.left, rect.top};
    ScreenToClient(box, &corner);
    return {corner.x, corner.y, rect.right - rect.left, rect.bottom - rect.top};
}

/// Size of `text` in the font of the box's buttons, which is its label's too.
SIZE SizeIn(HWND box, runtime::StringView text) {
    const HDC context = GetDC(box);
    const auto font = reinterpret_cast<HFONT>(SendMessageW(ButtonOf(box, L"&Yes"), WM_GETFONT, 0, 0));
    const HGDIOBJ former = SelectObject(context, font);
    SIZE size{};
    GetTextExtentPoint32W(context, runtime::win32::Wide(text.data()), static_cast<int>(text.size()), &size);
    SelectObject(context, former);
    ReleaseDC(box, context);
    return size;
}

class SuiteBoxLayout : public SuiteBoxTest {
 protected:
    /// Looks at the open box, then answers it.
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

/// Half a pixel may go either way; positions off the screen count, too.
void ExpectCentred(HWND box) {
    RECT outer{};
    GetWindowRect(box, &outer);
    EXPECT_NEAR(outer.left, (GetSystemMetrics(SM_CXSCREEN) - (outer.right - outer.left)) / 2.0, 1);
    EXPECT_NEAR(outer.top, (GetSystemMetrics(SM_CYSCREEN) - (outer.bottom - outer.top)) / 2.0, 1);
}

TEST_F(SuiteBoxLayout, OneWordLeavesTheDesign) {
    Look(u"Overwrite?", [](HWND box) {
        ExpectClient(box, 339, 95);
        ExpectCentred(box);
        EXPECT_EQ(PlaceOf(box, ButtonOf(box, L"&Yes")), (Place{12, 61, 75, 23}));
        EXPECT_EQ(PlaceOf(box, ButtonOf(box, L"&No")), (Place{93, 61, 75, 23}));
        EXPECT_EQ(PlaceOf(box, ButtonOf(box, L"Yes &To All")), (Place{174, 61, 75, 23}));
        EXPECT_EQ(PlaceOf(box, ButtonOf(box, L"Cancel")), (Place{255, 61, 75, 23}));
        EXPECT_EQ(PlaceOf(box, FindWindowExW(box, nullptr, L"STATIC", nullptr)), (Place{12, 12, 32, 32}));
        EXPECT_EQ(PlaceOf(box, LabelOf(box)), (Place{63, 16, 247, 26}));
        EXPECT_EQ(TextOf(box), u"Title");
    });
}

TEST_F(SuiteBoxLayout, WidePromptWidensItAndShiftsTheButtonsByHalf) {
    const String prompt(80, u'm');
    Look(prompt, [&](HWND box) {
        const long width = SizeIn(box, prompt).cx;
        ASSERT_GT(width, 247);
        // The label was 3700 twips wide, 246 2/3 pixels.
        EXPECT_EQ(PlaceOf(box, LabelOf(box)), (Place{63, 16, width, 26}));
        ExpectClient(box, width + 92, 95);
        ExpectCentred(box);
        EXPECT_EQ(PlaceOf(box, ButtonOf(box, L"&Yes")), (Place{width / 2 - 111, 61, 75, 23}));
        EXPECT_EQ(PlaceOf(box, ButtonOf(box, L"Cancel")), (Place{width / 2 + 132, 61, 75, 23}));
        EXPECT_EQ(PlaceOf(box, FindWindowExW(box, nullptr, L"STATIC", nullptr)), (Place{12, 12, 32, 32}));
    });
}

TEST_F(SuiteBoxLayout, TenLinesLowerTheButtons) {
    Look(u"1\r\n2\r\n3\r\n4\r\n5\r\n6\r\n7\r\n8\r\n9\r\n10", [](HWND box) {
        const long height = 10 * SizeIn(box, u"1").cy;
        EXPECT_EQ(PlaceOf(box, LabelOf(box)), (Place{63, 16, 247, height}));
        ExpectClient(box, 339, height + 69);
        ExpectCentred(box);
        EXPECT_EQ(PlaceOf(box, ButtonOf(box, L"Yes &To All")), (Place{174, height + 35, 75, 23}));
    });
}

TEST_F(SuiteBoxLayout, ShowsAnyPromptAsGiven) {
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

TEST_F(SuiteBoxLayout, PromptOfAMegabyteIsShownAndAnswered) {
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

TEST_F(SuiteBoxLayout, CountOfLiveObjectsSeesThem) {
    const long gdi = GdiObjects();
    const long user = UserObjects();
    std::vector<HRGN> regions(100);
    std::vector<HMENU> menus(100);
    std::ranges::generate(regions, [] { return CreateRectRgn(0, 0, 1, 1); });
    std::ranges::generate(menus, [] { return CreateMenu(); });
    EXPECT_NEAR(GdiObjects() - gdi, 100, 10);
    EXPECT_NEAR(UserObjects() - user, 100, 10);
    for (const HRGN region : regions) DeleteObject(region);
    for (const HMENU menu : menus) DestroyMenu(menu);
}

TEST_F(SuiteBoxLayout, TwoThousandQuestionsLeaveNothingBehind) {
    for (int i = 0; i < 50; ++i) AskQuickly();
    const long gdi = GdiObjects();
    const long user = UserObjects();
    const long windows = Windows();
    for (int i = 0; i < 2000; ++i) ASSERT_EQ(AskQuickly(), 6);
    // The system itself keeps a few objects more or less.
    EXPECT_NEAR(static_cast<double>(GdiObjects()), static_cast<double>(gdi), 20);
    EXPECT_NEAR(static_cast<double>(UserObjects()), static_cast<double>(user), 20);
    EXPECT_EQ(Windows(), windows);
    ExpectNothingIsLeft();
}

}  // namespace
}  // namespace tests
