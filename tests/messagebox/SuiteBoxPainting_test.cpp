// Tests the prompt, the icon and the title that the suite's message box shows. Compares each pixel of the prompt with
// the system's drawing of the text.
#include <gtest/gtest.h>

#include "tests/messagebox/SuiteBoxTest.h"
#include "tests/windows/WindowTexts.h"

namespace tests {
namespace {

using runtime::String;
using runtime::StringView;

using Pixels = std::vector<COLORREF>;

Pixels PixelsOf(HDC context, SIZE size) {
    Pixels pixels;
    for (int y = 0; y < size.cy; ++y)
        for (int x = 0; x < size.cx; ++x) pixels.push_back(GetPixel(context, x, y));
    return pixels;
}

SIZE SizeOf(HWND window) {
    RECT client{};
    GetClientRect(window, &client);
    return {client.right, client.bottom};
}

/// A bitmap in memory. It has the format of the screen.
class Canvas {
 public:
    Canvas(HDC like, SIZE size)
        : context_(CreateCompatibleDC(like)),
          bitmap_(CreateCompatibleBitmap(like, static_cast<int>(size.cx), static_cast<int>(size.cy))),
          former_(SelectObject(context_, bitmap_)) {}
    Canvas(const Canvas&) = delete;
    Canvas& operator=(const Canvas&) = delete;
    ~Canvas() {
        SelectObject(context_, former_);
        DeleteObject(bitmap_);
        DeleteDC(context_);
    }

    HDC Context() const { return context_; }

 private:
    HDC context_;
    HBITMAP bitmap_;
    HGDIOBJ former_;
};

Pixels Shown(HWND label) {
    UpdateWindow(label);
    const SIZE size = SizeOf(label);
    const HDC context = GetDC(label);
    const Canvas canvas(context, size);
    BitBlt(canvas.Context(), 0, 0, static_cast<int>(size.cx), static_cast<int>(size.cy), context, 0, 0, SRCCOPY);
    ReleaseDC(label, context);
    return PixelsOf(canvas.Context(), size);
}

Pixels Drawn(HWND box, const String& text, UINT how) {
    const HWND label = LabelOf(box);
    const SIZE size = SizeOf(label);
    const HDC context = GetDC(label);
    const Canvas canvas(context, size);
    ReleaseDC(label, context);
    RECT area{0, 0, size.cx, size.cy};
    FillRect(canvas.Context(), &area, GetSysColorBrush(COLOR_BTNFACE));
    SetBkColor(canvas.Context(), GetSysColor(COLOR_BTNFACE));
    SetTextColor(canvas.Context(), GetSysColor(COLOR_BTNTEXT));
    const HGDIOBJ former = SelectObject(canvas.Context(), FontOf(ButtonOf(box, L"&Yes")));
    DrawTextW(canvas.Context(), runtime::win32::Wide(text), static_cast<int>(text.size()), &area, how);
    SelectObject(canvas.Context(), former);
    return PixelsOf(canvas.Context(), size);
}

class SuiteBoxPainting : public SuiteBoxTest {
 protected:
    /// Inspects the open box, then closes it.
    void Look(StringView prompt, const std::function<void(HWND box)>& look) {
        EXPECT_EQ(Ask(8, {FocusIsOn(L"&Yes"), Do(look), Keys({VK_ESCAPE})}, prompt), 2);
    }
};

TEST_F(SuiteBoxPainting, PromptWithAmpersands_IsDrawnUnchanged) {
    const String prompt = u"Save & quit && &go?\r\n&Second";
    Look(prompt, [&](HWND box) {
        const Pixels shown = Shown(LabelOf(box));
        EXPECT_TRUE(shown == Drawn(box, prompt, DT_NOPREFIX));
        EXPECT_FALSE(shown == Drawn(box, prompt, 0));
        EXPECT_FALSE(shown == Drawn(box, u"", 0));
    });
}

TEST_F(SuiteBoxPainting, PromptWithNuls_NulsAreDrawnAsBlanks) {
    Look(StringView(u"first\0second\0", 13), [](HWND box) {
        EXPECT_EQ(TextOf(LabelOf(box)), u"first second ");
        EXPECT_TRUE(Shown(LabelOf(box)) == Drawn(box, u"first second ", DT_NOPREFIX));
    });
}

TEST_F(SuiteBoxPainting, OpenBox_IconIsABlueMarkInAWhiteBubble) {
    Look(u"Overwrite?", [](HWND box) {
        const HWND icon = FindWindowExW(box, nullptr, L"Static", nullptr);
        constexpr int kSide = 32;
        ASSERT_EQ(SizeOf(icon).cx, kSide);
        ASSERT_EQ(SizeOf(icon).cy, kSide);
        const Pixels shown = Shown(icon);
        const auto at = [&shown](std::size_t x, std::size_t y) { return shown[y * kSide + x]; };
        EXPECT_EQ(at(0, 0), GetSysColor(COLOR_BTNFACE));
        EXPECT_EQ(at(3, 13), RGB(255, 255, 255));
        EXPECT_EQ(at(15, 6), RGB(0, 0, 255));
    });
}

TEST_F(SuiteBoxPainting, TitleWithANul_NulIsShownAsABlank) {
    const DialogDriver driver({Do([](HWND box) { EXPECT_EQ(TextOf(box), u"first second"); }), Keys({VK_ESCAPE})});
    EXPECT_EQ(dialogs::AskWithSuiteBox(u"prompt", 8, StringView(u"first\0second", 12)), 2);
}

}  // namespace
}  // namespace tests
