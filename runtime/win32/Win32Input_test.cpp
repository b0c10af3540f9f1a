// Tests input controls as real windows: the accessible names, the focus, the fonts, and keys from the system's input
// queue. Also checks that no window remains.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <vector>

#include "runtime/win32/DisabledWindows.h"
#include "runtime/win32/GdiMeasure.h"
#include "runtime/win32/Win32Control.h"
#include "tests/support/InputForm.h"
#include "tests/support/RuntimeFixture.h"
#include "tests/support/TypingUser.h"
#include "tests/windows/LiveObjects.h"
#include "tests/windows/Places.h"
#include "tests/windows/Queues.h"
#include "tests/windows/WindowTexts.h"

namespace runtime::win32 {
namespace {

using ::testing::ElementsAre;
using tests::AccessibleNameOf;
using tests::PlaceOf;

class RealInputs : public tests::RuntimeTest {
 protected:
    HWND Window() { return reinterpret_cast<HWND>(form_.Handle()); }
    /// Returns the window of the control with this number. Numbers start at 0, in the order of the calls that added the
    /// controls.
    HWND WindowOf(int number) {
        constexpr int kFirstId = 100;
        return GetDlgItem(Window(), kFirstId + number);
    }
    HWND TextWindow() { return WindowOf(0); }
    HWND ComboWindow() { return WindowOf(1); }
    HWND BlockWindow() { return WindowOf(3); }
    HWND ListWindow() { return WindowOf(4); }
    void ShowOn(Control& control) {
        form_.SetVisible(true);
        SetForegroundWindow(Window());
        form_.SetFocus(control);
        DoEvents();
        form_.log.clear();
    }

    tests::InputForm form_;
    tests::TypingUser user_{form_};
};

TEST_F(RealInputs, ScreenReader_GetsTheAccessibleName) {
    form_.text.SetAccessibleName(u"Old");
    for (Control* control : {&form_.text, &form_.block}) control->SetAccessibleName(u"Value of " + control->Name());
    EXPECT_EQ(AccessibleNameOf(TextWindow()), u"Value of text");
    EXPECT_EQ(AccessibleNameOf(BlockWindow()), u"Value of block");
}

/// The horizontal scroll range of a list box: the total width and the width of the visible part. Both are 0 without a
/// scroll bar.
std::pair<int, int> SidewaysRangeOf(HWND list) {
    const bool hasBar = (GetWindowLongW(list, GWL_STYLE) & WS_HSCROLL) != 0;
    SCROLLINFO info{sizeof(SCROLLINFO), SIF_RANGE | SIF_PAGE, 0, 0, 0, 0, 0};
    if (!hasBar || !GetScrollInfo(list, SB_HORZ, &info)) return {0, 0};
    return {info.nMax + 1, static_cast<int>(info.nPage)};
}

TEST_F(RealInputs, ListBox_ScrollsSidewaysToTheEndOfItsWidestItem) {
    const String wide(200, u'm');
    const int width = GdiMeasure(tests::FontOf(ListWindow())).Width(wide);
    form_.list.AddItem(u"narrow");
    ShowOn(form_.list);
    EXPECT_EQ(SidewaysRangeOf(ListWindow()), (std::pair{0, 0}));
    // The bounds are 56 pixels high. The list box may be smaller by a part of an item.
    const auto itemHeight = static_cast<long>(SendMessageW(ListWindow(), LB_GETITEMHEIGHT, 0, 0));
    EXPECT_GT(PlaceOf(ListWindow()).height, 56 - itemHeight);
    form_.list.AddItem(wide);
    form_.list.AddItem(u"narrow");
    const auto [all, shown] = SidewaysRangeOf(ListWindow());
    EXPECT_GT(shown, 0);
    EXPECT_GT(all, width);
    EXPECT_LT(all, width + 20);
    form_.list.ClearItems();
    form_.list.AddItem(u"narrow");
    EXPECT_EQ(SidewaysRangeOf(ListWindow()), (std::pair{0, 0}));
}

TEST_F(RealInputs, AddItems_SetsTheScrollBars) {
    ShowOn(form_.list);
    std::vector<String> items(49, u"narrow");
    items.emplace_back(200, u'm');
    form_.list.AddItems(items);
    SCROLLINFO info{sizeof(SCROLLINFO), SIF_RANGE, 0, 0, 0, 0, 0};
    EXPECT_TRUE(GetScrollInfo(ListWindow(), SB_VERT, &info));
    EXPECT_EQ(info.nMax, 49);
    EXPECT_GT(SidewaysRangeOf(ListWindow()).second, 0);
}

TEST_F(RealInputs, AddItems_HiddenControlStaysHidden) {
    ShowOn(form_.text);
    for (const int number : {1, 2, 4}) {
        Control& control = *form_.Controls()[static_cast<std::size_t>(number)];
        control.SetVisible(false);
        control.AddItems(std::vector<String>(50, u"item"));
        EXPECT_FALSE(IsWindowVisible(WindowOf(number))) << number;
        control.SetVisible(true);
        EXPECT_TRUE(IsWindowVisible(WindowOf(number))) << number;
    }
}

// A list box reduces its height to a whole number of items when its scroll bar appears.
TEST_F(RealInputs, WideItemIsRemoved_ListBoxHasItsFormerHeight) {
    form_.list.AddItem(u"narrow");
    ShowOn(form_.list);
    const tests::Place before = PlaceOf(ListWindow());
    form_.list.AddItem(String(200, u'm'));
    form_.list.ClearItems();
    EXPECT_EQ(PlaceOf(ListWindow()), before);
}

// Wine shows no scroll bar in the list of a combo box, but stores the list's scroll range.
TEST_F(RealInputs, DropDownList_KeepsTheWidthOfItsWidestItem) {
    for (const int number : {1, 2}) {
        Control& control = *form_.Controls()[static_cast<std::size_t>(number)];
        const HWND combo = WindowOf(number);
        const auto extent = [combo] { return static_cast<int>(SendMessageW(combo, CB_GETHORIZONTALEXTENT, 0, 0)); };
        const String wide(200, u'm');
        control.AddItem(wide);
        control.AddItem(u"m");
        const int width = GdiMeasure(tests::FontOf(combo)).Width(wide);
        EXPECT_GT(extent(), width);
        EXPECT_LT(extent(), width + 20);
        Font large = control.Font();
        large.size *= 2;
        control.SetFont(large);
        EXPECT_GT(extent(), GdiMeasure(tests::FontOf(combo)).Width(wide));
        control.ClearItems();
        EXPECT_EQ(extent(), 0);
    }
}

// Wine finds the accessible names of edit windows only. Therefore this test checks the label window.
TEST_F(RealInputs, AccessibleName_IsAHiddenLabelBeforeItsControl) {
    for (const int number : {0, 1, 2, 3, 4}) {
        Control& control = *form_.Controls()[static_cast<std::size_t>(number)];
        const HWND before = GetWindow(WindowOf(number), GW_HWNDPREV);
        control.SetAccessibleName(u"First");
        control.SetAccessibleName(u"Second");
        const HWND label = GetWindow(WindowOf(number), GW_HWNDPREV);
        EXPECT_EQ(TextOf(label), u"Second");
        EXPECT_TRUE(SendMessageW(label, WM_GETDLGCODE, 0, 0) & DLGC_STATIC);
        EXPECT_FALSE(GetWindowLongW(label, GWL_STYLE) & WS_VISIBLE);
        EXPECT_EQ(GetWindow(label, GW_HWNDPREV), before);
    }
}

// A NUL becomes a blank, and the text after it is kept.
TEST_F(RealInputs, AccessibleName_KeepsAllCharacters) {
    for (const StringView name : {StringView(u"Save\0as & where?", 16), StringView(u"R&D\0", 4)}) {
        form_.text.SetAccessibleName(name);
        const HWND label = GetWindow(TextWindow(), GW_HWNDPREV);
        EXPECT_EQ(TextOf(label), NulsAsBlanks(name));
        EXPECT_TRUE(GetWindowLongW(label, GWL_STYLE) & SS_NOPREFIX);
    }
}

/// Records the requests to change a window's position or z-order.
class OrderSpy {
 public:
    struct Request {
        HWND insertAfter;
        UINT flags;
        bool operator==(const Request&) const = default;
    };

    explicit OrderSpy(HWND window) : window_(window) {
        current_ = this;
        before_ = SetWindowLongPtrW(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&Procedure));
    }
    OrderSpy(const OrderSpy&) = delete;
    OrderSpy& operator=(const OrderSpy&) = delete;
    ~OrderSpy() {
        SetWindowLongPtrW(window_, GWLP_WNDPROC, before_);
        current_ = nullptr;
    }
    std::vector<Request> requests;

 private:
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) noexcept {
        if (message == WM_WINDOWPOSCHANGING) {
            const auto& place = *reinterpret_cast<const WINDOWPOS*>(lParam);
            current_->requests.push_back({place.hwndInsertAfter, place.flags});
        }
        return CallWindowProcW(reinterpret_cast<WNDPROC>(current_->before_), window, message, wParam, lParam);
    }

    static OrderSpy* current_;
    HWND window_;
    LONG_PTR before_;
};

OrderSpy* OrderSpy::current_ = nullptr;

TEST_F(RealInputs, SetTopMost_RequestsNoNewPositionOrSize) {
    form_.SetVisible(true);
    DoEvents();
    OrderSpy spy(Window());
    form_.SetTopMost(true);
    form_.SetTopMost(false);
    constexpr UINT kFlags = 515;  // SWP_NOSIZE, SWP_NOMOVE and SWP_NOOWNERZORDER
    ASSERT_EQ(spy.requests.size(), 2u);
    EXPECT_EQ(spy.requests[0].insertAfter, HWND_TOPMOST);
    EXPECT_EQ(spy.requests[0].flags, kFlags);
    EXPECT_EQ(spy.requests[1].insertAfter, HWND_NOTOPMOST);
    EXPECT_EQ(spy.requests[1].flags, kFlags);
}

TEST_F(RealInputs, ClientSubclassesTheWindow_FormStillGetsKeys) {
    ShowOn(form_.text);
    const OrderSpy spy(Window());
    user_.Type(u"a");
    EXPECT_THAT(form_.log, ElementsAre("form 97", "text 97"));
    EXPECT_EQ(form_.text.Text(), u"a");
}

TEST_F(RealInputs, SetTopMost_KeepsPositionAndSize) {
    form_.SetVisible(true);
    const auto isTopMost = [this] { return (GetWindowLongW(Window(), GWL_EXSTYLE) & WS_EX_TOPMOST) != 0; };
    const tests::Place before = PlaceOf(Window());
    form_.SetTopMost(true);
    EXPECT_TRUE(isTopMost());
    EXPECT_EQ(PlaceOf(Window()), before);
    form_.SetTopMost(false);
    EXPECT_FALSE(isTopMost());
}

TEST_F(RealInputs, HiddenControl_HasNoVisibleWindow) {
    form_.text.SetVisible(false);
    form_.SetVisible(true);
    EXPECT_FALSE(IsWindowVisible(TextWindow()));
    form_.text.SetVisible(true);
    EXPECT_TRUE(IsWindowVisible(TextWindow()));
}

TEST_F(RealInputs, OpenList_ShowsEightItems) {
    for (int i = 0; i < 50; ++i) form_.combo.AddItem(u"item");
    ShowOn(form_.combo);
    user_.Press(kKeyF4);
    COMBOBOXINFO parts{};
    parts.cbSize = sizeof parts;
    ASSERT_TRUE(GetComboBoxInfo(ComboWindow(), &parts));
    EXPECT_TRUE(IsWindowVisible(parts.hwndList));
    RECT client{};
    GetClientRect(parts.hwndList, &client);
    EXPECT_EQ(client.bottom / SendMessageW(parts.hwndList, LB_GETITEMHEIGHT, 0, 0), 8);
    user_.Press(kKeyEscape);
    EXPECT_FALSE(IsWindowVisible(parts.hwndList));
}

TEST_F(RealInputs, Nul_IsShownAsABlankAndBecomesABlankAfterTyping) {
    form_.text.SetText(StringView(u"a\0b", 3));
    EXPECT_EQ(TextOf(TextWindow()), u"a b");
    ShowOn(form_.text);
    form_.text.SetSelStart(3);
    user_.Type(u"c");
    EXPECT_EQ(form_.text.Text(), u"a bc");
}

TEST_F(RealInputs, UserMovesTheFocus_FormReportsTheFocusedControl) {
    ShowOn(form_.text);
    for (const HWND window : {ComboWindow(), BlockWindow(), ListWindow()}) SetFocus(window);
    EXPECT_EQ(form_.FocusedControl(), &form_.list);
    SetFocus(BlockWindow());
    EXPECT_EQ(form_.FocusedControl(), &form_.block);
    SetFocus(ComboWindow());
    EXPECT_EQ(form_.FocusedControl(), &form_.combo);
}

// Windows removes the focus from a disabled window and from a window that is no longer active.
TEST_F(RealInputs, UserMovedTheFocus_FocusReturnsAfterADialog) {
    ShowOn(form_.text);
    SetFocus(ListWindow());
    tests::InputForm dialog;
    dialog.EnsureLoaded();
    {
        DisabledWindows others(reinterpret_cast<HWND>(dialog.Handle()));
        others.Disable();
        dialog.SetVisible(true);
        DoEvents();
        EXPECT_NE(GetFocus(), ListWindow());
    }
    dialog.Unload();
    SetActiveWindow(Window());
    DoEvents();
    EXPECT_EQ(form_.FocusedControl(), &form_.list);
    EXPECT_EQ(GetFocus(), ListWindow());
}

// The height of a list box is a whole number of items. An open list shows eight items.
TEST_F(RealInputs, FontOfAListChanges_WindowFitsTheNewItems) {
    const auto openPlace = [this] {
        RECT open{};
        SendMessageW(ComboWindow(), CB_GETDROPPEDCONTROLRECT, 0, reinterpret_cast<LPARAM>(&open));
        return open;
    };
    form_.list.SetFont({.size = 20});
    form_.combo.SetFont({.size = 20});
    const tests::Place list = PlaceOf(ListWindow());
    const RECT open = openPlace();
    form_.list.SetBounds(form_.list.Bounds());
    form_.combo.SetBounds(form_.combo.Bounds());
    EXPECT_EQ(PlaceOf(ListWindow()), list);
    EXPECT_EQ(openPlace().bottom, open.bottom);
}

TEST_F(RealInputs, SetFont_ChangesTheWindowsFont) {
    form_.text.SetFont({.name = u"Arial", .size = 20});
    EXPECT_STREQ(tests::FontDescriptionOf(TextWindow()).lfFaceName, L"Arial");
}

/// A form with a label, a picture and a button, in this order.
class MirrorableForm : public Form {
 public:
    explicit MirrorableForm(bool isMirrored)
        : Form({.name = u"mirrorable", .inner = kInner, .border = BorderStyle::kFixedDialog}), isMirrored_(isMirrored) {
        for (const ControlKind kind : {ControlKind::kLabel, ControlKind::kPicture, ControlKind::kButton})
            AddControl({.kind = kind, .name = u"control", .bounds = {150, 300, 1500, 600}, .text = u"R1"});
    }

    static constexpr Size kInner{4500, 3000};

 protected:
    bool IsRightToLeft() const override { return isMirrored_; }

 private:
    bool isMirrored_;
};

class MirroredWindow : public tests::RuntimeTest {
 protected:
    static HWND WindowOf(Form& form) { return reinterpret_cast<HWND>(form.Handle()); }
    static std::vector<HWND> ControlsOf(Form& form) {
        return {GetDlgItem(WindowOf(form), 100), GetDlgItem(WindowOf(form), 101), GetDlgItem(WindowOf(form), 102)};
    }
    static bool IsMirrored(HWND window) { return (GetWindowLongW(window, GWL_EXSTYLE) & WS_EX_LAYOUTRTL) != 0; }
    /// Returns the distances of a child from the left and from the right edge of the client area, in pixels.
    static std::pair<long, long> DistancesOf(HWND child) {
        RECT client{};
        GetClientRect(GetParent(child), &client);
        MapWindowPoints(GetParent(child), nullptr, reinterpret_cast<POINT*>(&client), 2);
        const tests::Place place = PlaceOf(child);
        return {place.left - client.left, client.right - place.left - place.width};
    }

    MirrorableForm plain_{false};
    MirrorableForm mirrored_{true};
};

TEST_F(MirroredWindow, ContentOfLabelsAndPictures_IsNotMirrored) {
    EXPECT_TRUE(IsMirrored(WindowOf(mirrored_)));
    const std::vector<HWND> controls = ControlsOf(mirrored_);
    EXPECT_FALSE(IsMirrored(controls[0]));
    EXPECT_FALSE(IsMirrored(controls[1]));
    EXPECT_TRUE(IsMirrored(controls[2]));
    EXPECT_TRUE(GetWindowLongW(controls[0], GWL_EXSTYLE) & WS_EX_RTLREADING);
    for (const HWND control : ControlsOf(plain_)) {
        EXPECT_FALSE(IsMirrored(control));
        EXPECT_FALSE(GetWindowLongW(control, GWL_EXSTYLE) & WS_EX_RTLREADING);
    }
}

TEST_F(MirroredWindow, Children_AreAtTheOtherSideAndTheFormKeepsItsSize) {
    EXPECT_EQ(mirrored_.InnerSize(), MirrorableForm::kInner);
    EXPECT_EQ(PlaceOf(WindowOf(mirrored_)).width, PlaceOf(WindowOf(plain_)).width);
    const std::vector<HWND> before = ControlsOf(plain_);
    const std::vector<HWND> controls = ControlsOf(mirrored_);
    for (std::size_t i = 0; i < controls.size(); ++i) {
        const auto [left, right] = DistancesOf(before[i]);
        EXPECT_EQ(left, 10);
        EXPECT_EQ(DistancesOf(controls[i]), (std::pair{right, left})) << i;
        EXPECT_EQ(PlaceOf(controls[i]).width, PlaceOf(before[i]).width) << i;
        EXPECT_EQ(PlaceOf(controls[i]).height, PlaceOf(before[i]).height) << i;
    }
}

class KeyboardInputs : public RealInputs {
 protected:
    /// Types `keys` through the system's input queue. Waits until the log of the form has `logged` entries, at most 10
    /// seconds.
    void Send(const std::vector<WORD>& keys, std::size_t logged) {
        tests::SendKeys(keys);
        const ULONGLONG end = GetTickCount64() + 10'000;
        while (form_.log.size() < logged && GetTickCount64() < end) {
            DoEvents();
            Sleep(5);
        }
    }
};

TEST_F(KeyboardInputs, KeyInTheEditOfACombo_ReachesTheFormFirst) {
    ShowOn(form_.combo);
    form_.combo.SetSelStart(0);
    form_.combo.SetSelLength(6);
    Send({'Q'}, 2);
    EXPECT_THAT(form_.log, ElementsAre("form 113", "combo 113"));
    Send({VK_RETURN}, 4);
    EXPECT_THAT(form_.log, ElementsAre("form 113", "combo 113", "form 13", "combo 13"));
    EXPECT_EQ(form_.combo.Text(), u"q");
}

TEST_F(KeyboardInputs, AltAndLetter_PressTheButtonFromEveryInputControl) {
    for (Control* control : {&form_.text, &form_.combo, &form_.dropDown, &form_.block, &form_.list}) {
        ShowOn(*control);
        Send({VK_MENU, 'A'}, 1);
        EXPECT_THAT(form_.log, ElementsAre("click button")) << ToUtf8(control->Name());
    }
    EXPECT_EQ(form_.text.Text(), u"");
}

TEST_F(KeyboardInputs, AltAndDownOpensTheList) {
    form_.dropDown.AddItem(u"Alpha");
    form_.dropDown.AddItem(u"Beta");
    ShowOn(form_.dropDown);
    const auto isOpen = [this] { return SendMessageW(WindowOf(2), CB_GETDROPPEDSTATE, 0, 0) != FALSE; };
    PostMessageW(WindowOf(2), WM_SYSKEYDOWN, VK_DOWN, 1 << 29 | 1);
    DoEvents();
    EXPECT_TRUE(isOpen());
    user_.Press(kKeyDown);
    Send({VK_RETURN}, 2);
    EXPECT_FALSE(isOpen());
    EXPECT_THAT(form_.log, ElementsAre("form 13", "dropDown 13"));
    EXPECT_EQ(form_.dropDown.Text(), u"Alpha");
}

TEST_F(RealInputs, Unloaded_NoWindowRemains) {
    tests::ExpectNothingStays(200, [this](int) {
        form_.list.AddItem(u"item");
        form_.text.SetAccessibleName(u"name");
        form_.SetVisible(true);
        form_.Unload();
        DoEvents();
    });
}

}  // namespace
}  // namespace runtime::win32
