// Tests the suite's message box for users with a screen reader, an input method, changed system colours, or monitors
// with different DPI.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <optional>

#include "tests/messagebox/SuiteBoxTest.h"
#include "tests/windows/Accessible.h"
#include "tests/windows/WindowTexts.h"

namespace tests {
namespace {

using ::testing::ElementsAre;

class SuiteBoxEnvironment : public SuiteBoxTest {};

TEST_F(SuiteBoxEnvironment, ScreenReader_GetsRoleNameAndPrompt) {
    std::vector<std::string> elements;
    const auto read = Do([&](HWND box) { elements = AccessibleElementsOf(box); });
    Ask(8 + 0x100, {FocusIsOn(L"&No"), read, Keys({VK_RETURN})}, u"Overwrite R&D?\r\nR1 is there.");
    EXPECT_THAT(elements, ElementsAre("dialog [Title] description [Overwrite R&D?\r\nR1 is there.]", "Static [?]",
                                      "static text [Overwrite R&D?\r\nR1 is there.]", "Button [Yes]",
                                      "Button [No] focused", "Button [Yes To All]", "Button [Cancel]"));
    ExpectNothingIsLeft();
}

TEST_F(SuiteBoxEnvironment, Buttons_HaveNoInputMethodContext) {
    Ask(8, {Do([](HWND box) {
                EXPECT_EQ(ImmGetContext(ButtonOf(box, L"&Yes")), nullptr);
                EXPECT_EQ(ImmGetContext(ButtonOf(box, L"Cancel")), nullptr);
                const HIMC own = ImmGetContext(box);
                EXPECT_NE(own, nullptr);
                ImmReleaseContext(box, own);
            }),
            Keys({VK_RETURN})});
    ExpectNothingIsLeft();
}

/// Changes a system colour. The destructor restores the earlier colour.
class ChangedColour {
 public:
    ChangedColour(int index, COLORREF colour) : index_(index), before_(GetSysColor(index)) { Set(colour); }
    ChangedColour(const ChangedColour&) = delete;
    ChangedColour& operator=(const ChangedColour&) = delete;
    ~ChangedColour() { Set(before_); }

 private:
    void Set(COLORREF colour) const { SetSysColors(1, &index_, &colour); }

    int index_;
    COLORREF before_;
};

constexpr COLORREF kNew = RGB(16, 32, 48);

COLORREF ColourAt(HWND window, int x, int y) {
    UpdateWindow(window);
    const HDC context = GetDC(window);
    const COLORREF colour = GetPixel(context, x, y);
    ReleaseDC(window, context);
    return colour;
}

TEST_F(SuiteBoxEnvironment, SystemColourChanges_OpenBoxUsesTheNewColour) {
    std::optional<ChangedColour> changed;
    const auto isPainted = [](HWND box) {
        const HWND label = LabelOf(box);
        RECT place{};
        GetClientRect(label, &place);
        return ColourAt(box, 2, 2) == kNew && ColourAt(label, static_cast<int>(place.right) - 2, 2) == kNew;
    };
    Ask(8, {FocusIsOn(L"&Yes"), Do([](HWND box) { EXPECT_NE(ColourAt(box, 2, 2), kNew); }),
            Do([&](HWND) { changed.emplace(COLOR_BTNFACE, kNew); }), isPainted, Keys({VK_RETURN})});
    changed.reset();
    ExpectNothingIsLeft();
}

/// Returns a function of the system that reads or sets the DPI awareness. The headers declare these functions only for
/// newer systems.
template <typename Function>
Function* SystemEntry(const char* name) {
    return reinterpret_cast<Function*>(reinterpret_cast<void*>(GetProcAddress(GetModuleHandleW(L"user32"), name)));
}

int AwarenessOf(HANDLE context) {
    return SystemEntry<int WINAPI(HANDLE)>("GetAwarenessFromDpiAwarenessContext")(context);
}

HANDLE ContextOf(HWND window) {
    return SystemEntry<HANDLE WINAPI(HWND)>("GetWindowDpiAwarenessContext")(window);
}

HANDLE CurrentContext() {
    return SystemEntry<HANDLE WINAPI()>("GetThreadDpiAwarenessContext")();
}

HANDLE UseContext(LONG_PTR context) {
    return SystemEntry<HANDLE WINAPI(HANDLE)>("SetThreadDpiAwarenessContext")(reinterpret_cast<HANDLE>(context));
}

TEST_F(SuiteBoxEnvironment, HostIsAwareOfEachMonitor_SystemScalesTheBox) {
    constexpr LONG_PTR kEachMonitorV2 = -4;
    constexpr int kUnaware = 0;
    constexpr int kSystem = 1;
    constexpr int kEachMonitor = 2;
    int ofBox = -1;
    const auto look = Do([&](HWND box) { ofBox = AwarenessOf(ContextOf(box)); });
    const HANDLE before = UseContext(kEachMonitorV2);
    ASSERT_EQ(AwarenessOf(CurrentContext()), kEachMonitor);
    Ask(8, {look, Keys({VK_RETURN})});
    EXPECT_EQ(ofBox, kSystem);
    EXPECT_EQ(AwarenessOf(CurrentContext()), kEachMonitor);
    // If a host is not aware of the DPI, the box is not aware of the DPI, either.
    UseContext(-1);
    Ask(8, {look, Keys({VK_RETURN})});
    EXPECT_EQ(ofBox, kUnaware);
    SystemEntry<HANDLE WINAPI(HANDLE)>("SetThreadDpiAwarenessContext")(before);
    ExpectNothingIsLeft();
}

/// Returns the system's resolution in DPI, which the user can set.
int ResolutionOfTheSystem() {
    DWORD dpi = USER_DEFAULT_SCREEN_DPI;
    DWORD size = sizeof dpi;
    RegGetValueW(HKEY_CURRENT_USER, L"Control Panel\\Desktop", L"LogPixels", RRF_RT_REG_DWORD, nullptr, &dpi, &size);
    return static_cast<int>(dpi);
}

// The test also runs while the system has a resolution other than 96 DPI; see tests/tool/test_locales.py.
TEST_F(SuiteBoxEnvironment, HostChangesItsDpiAwareness_BoxUsesTheDpiThatTheHostSees) {
    constexpr LONG_PTR kUnawareContext = -1;
    constexpr LONG_PTR kSystemContext = -2;
    constexpr double kPointsPerInch = 72;
    constexpr double kPoints = 8.25;
    const auto ask = [&](LONG_PTR context, int dpi) {
        const HANDLE before = UseContext(context);
        Ask(8, {Do([&](HWND box) {
                    RECT client{};
                    GetClientRect(box, &client);
                    EXPECT_EQ(client.right, std::lround(5085.0 * dpi / 1440)) << dpi;
                    EXPECT_EQ(FontDescriptionOf(LabelOf(box)).lfHeight, -std::lround(kPoints * dpi / kPointsPerInch));
                }),
                Keys({VK_RETURN})});
        SystemEntry<HANDLE WINAPI(HANDLE)>("SetThreadDpiAwarenessContext")(before);
    };
    ask(kUnawareContext, USER_DEFAULT_SCREEN_DPI);
    ask(kSystemContext, ResolutionOfTheSystem());
    ask(kUnawareContext, USER_DEFAULT_SCREEN_DPI);
    ExpectNothingIsLeft();
}

}  // namespace
}  // namespace tests
