// Tests the query dialog in real windows: input controls, focus, keys, activation and other windows. The tests in
// dialogs/ cover the dialog's decisions. The query dialog and the message box share the code for modality and errors.
// The tests of the message box cover this code.
#include <gtest/gtest.h>

#include "host/Composition.h"
#include "host/frmBackProcessMain.h"
#include "runtime/LoadedForms.h"
#include "services/ProcessValues.h"
#include "tests/query/QueryTest.h"
#include "tests/windows/WindowTexts.h"

namespace tests {
namespace {

using runtime::String;

class Query : public QueryTest {};

const DialogDriver::Step kEnter = Keys({VK_RETURN});
const DialogDriver::Step kEscape = Keys({VK_ESCAPE});
const DialogDriver::Step kTab = Keys({VK_TAB});

const DialogDriver::Step kListIsOpen = [](HWND dialog) {
    return SendMessageW(InputOf(dialog), CB_GETDROPPEDSTATE, 0, 0) != 0;
};

/// Waits until the input control shows `text`.
DialogDriver::Step Shows(const String& text) {
    return [text](HWND dialog) { return TextOf(InputOf(dialog)) == text; };
}

/// Checks that the input control's selection begins at `from` and ends before `to`.
DialogDriver::Step IsSelected(DWORD from, DWORD to) {
    return Do([from, to](HWND dialog) {
        const HWND edit = FindWindowExW(InputOf(dialog), nullptr, L"Edit", nullptr);
        DWORD first = 0;
        DWORD last = 0;
        SendMessageW(edit ? edit : InputOf(dialog), EM_GETSEL, reinterpret_cast<WPARAM>(&first),
                     reinterpret_cast<LPARAM>(&last));
        EXPECT_EQ(first, from);
        EXPECT_EQ(last, to);
    });
}

TEST_F(Query, Text_IsSelectedAndReplacedByTyping) {
    EXPECT_EQ(Ask({.values = {u"abc   "}}, {FocusIsOnInput(), Shows(u"abc"), IsSelected(0, 3), kEnter}),
              (Answer{u"abc", 0}));
    EXPECT_EQ(Ask({.values = {u"abc   "}}, {FocusIsOnInput(), Keys({'Q'}), kEnter}), (Answer{u"q", 0}));
    ExpectNothingIsLeft();
}

TEST_F(Query, Combo_ReturnsTheTypedText) {
    const Question question{.kind = 2, .values = {u"X", u"Y", u"Z"}};
    EXPECT_EQ(Ask(question, {FocusIsOnInput(), Shows(u"X"), IsSelected(0, 1), Keys({VK_SHIFT, 'Q'}), kEnter}),
              (Answer{u"Q", 0}));
    EXPECT_EQ(Ask(question, {FocusIsOnInput(), kEnter}), (Answer{u"X", 0}));
    ExpectNothingIsLeft();
}

TEST_F(Query, Combo_ReturnsTheChosenItem) {
    const Question question{.kind = 2, .values = {u"X", u"Y", u"Z"}};
    EXPECT_EQ(Ask(question, {FocusIsOnInput(), Keys({VK_DOWN}), Shows(u"Y"), Keys({VK_DOWN}), Shows(u"Z"), kEnter}),
              (Answer{u"Z", 0}));
}

TEST_F(Query, DropDownList_StartsAtTheIndexAndReturnsTheSubscript) {
    const Question question{.kind = 3, .values = {u"not shown", u"A", u"B", u"C"}, .index = 1};
    EXPECT_EQ(Ask(question, {FocusIsOnInput(), Shows(u"B"), kEnter}), (Answer{u"B", 2}));
    EXPECT_EQ(Ask(question, {FocusIsOnInput(), Keys({VK_DOWN}), Shows(u"C"), ClickOn(L"Accept")}), (Answer{u"C", 3}));
    EXPECT_EQ(Ask(question, {FocusIsOnInput(), Keys({'A'}), Shows(u"A"), kEnter}), (Answer{u"A", 1}));
    ExpectNothingIsLeft();
}

TEST_F(Query, List_ReturnsTheSubscriptOfTheSelectedItem) {
    const Question question{.kind = 5, .values = {u"not shown", u"Ant", u"Bee", u"Cat"}, .index = 1};
    EXPECT_EQ(Ask(question, {ClickOn(L"Accept")}), (Answer{u"Bee", 2}));
    EXPECT_EQ(Ask(question, {kTab, kTab, FocusIsOnInput(), Keys({'C'}), kEnter}), (Answer{u"Cat", 3}));
    EXPECT_EQ(Ask(question, {kTab, kTab, FocusIsOnInput(), Keys({VK_UP}), kEnter}), (Answer{u"Ant", 1}));
    ExpectNothingIsLeft();
}

TEST_F(Query, EnterInTheTextBlock_AddsALine) {
    EXPECT_EQ(Ask({.kind = 4, .values = {u"abc"}},
                  {kTab, kTab, FocusIsOnInput(), IsSelected(0, 3), Keys({VK_CONTROL, VK_END}), kEnter, Keys({'D'}),
                   Shows(u"abc\r\nd"), kTab, FocusIsOn(L"Accept"), kEnter}),
              (Answer{u"abc\r\nd", 0}));
    ExpectNothingIsLeft();
}

TEST_F(Query, EscapeOrClosing_Cancels) {
    const Question question{.kind = 3, .values = {u"abc   ", u"A", u"B"}, .index = 1};
    EXPECT_EQ(Ask(question, {kEscape}), kNoAnswer);
    EXPECT_EQ(Ask(question, {ClickOn(L"Cancel")}), kNoAnswer);
    EXPECT_EQ(Ask(question, {Do([](HWND dialog) { PostMessageW(dialog, WM_CLOSE, 0, 0); })}), kNoAnswer);
    EXPECT_EQ(Ask(question, {Do([](HWND dialog) { PostMessageW(dialog, WM_SYSCOMMAND, SC_CLOSE, 0); })}), kNoAnswer);
    ExpectNothingIsLeft();
}

TEST_F(Query, AltF4OnAnOpenList_Cancels) {
    for (const std::int32_t kind : {2, 3}) {
        EXPECT_EQ(Ask({.kind = kind, .values = {u"X", u"Y", u"Z"}, .index = 0},
                      {FocusIsOnInput(), Keys({VK_F4}), kListIsOpen, Keys({VK_MENU, VK_F4})}),
                  kNoAnswer);
        ExpectNothingIsLeft();
    }
}

TEST_F(Query, EnterWithTheListOpen_AcceptsOnce) {
    for (const std::int32_t kind : {2, 3}) {
        EXPECT_EQ(Ask({.kind = kind, .values = {u"X", u"Y", u"Z"}, .index = 0},
                      {FocusIsOnInput(), Keys({VK_F4}), kListIsOpen, Keys({VK_DOWN}), Keys({VK_RETURN})}),
                  kind == 2 ? (Answer{u"Y", 0}) : (Answer{u"Z", 2}));
        ExpectNothingIsLeft();
    }
}

TEST_F(Query, ControlF1_OpensHelpAndF1DoesNot) {
    services::Values().helpFilePath = u"D:\\Pelorix\\Marlentine.HLP";
    const auto calls = [this] { return memory_.help.calls.size(); };
    const auto isOpened = [calls](HWND) { return calls() == 1; };
    EXPECT_EQ(Ask({}, {FocusIsOnInput(), Keys({VK_F1}), Keys({VK_SHIFT, VK_F1}), Keys({'A'}), Shows(u"a"),
                       Do([calls](HWND) { EXPECT_EQ(calls(), 0u); }), Keys({VK_CONTROL, VK_F1}), isOpened, kEnter}),
              (Answer{u"a", 0}));
    ASSERT_EQ(calls(), 1u);
    EXPECT_EQ(memory_.help.calls[0].opened, u"D:\\Pelorix\\Marlentine.chm");
}

TEST_F(Query, EveryActivation_MakesTheDialogTopmost) {
    const auto isTopmost = [](HWND dialog) { return (GetWindowLongW(dialog, GWL_EXSTYLE) & WS_EX_TOPMOST) != 0; };
    HWND other = nullptr;
    const auto goAway = Do([&](HWND dialog) {
        SetWindowPos(dialog, HWND_NOTOPMOST, 0, 0, 0, 0, SWP_NOSIZE | SWP_NOMOVE | SWP_NOACTIVATE);
        EXPECT_FALSE(isTopmost(dialog));
        other = CreateWindowExW(0, L"STATIC", L"other", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 100, 100, nullptr,
                                nullptr, GetModuleHandleW(nullptr), nullptr);
        SetActiveWindow(other);
        EXPECT_EQ(GetActiveWindow(), other);
    });
    const auto comeBack = Do([&](HWND dialog) {
        SetActiveWindow(dialog);
        DestroyWindow(other);
    });
    EXPECT_EQ(Ask({}, {FocusIsOnInput(), isTopmost, goAway, comeBack, isTopmost, kEscape}), kNoAnswer);
    EXPECT_FALSE(isTopmost(owner_));
    ExpectNothingIsLeft();
}

// The command unloads the main form and the dialog. Clients receive SHUTDOWN.
TEST_F(Query, ExCommand_Cancels) {
    host::MainForm().EnsureLoaded();
    const auto endAll = Do([](HWND) {
        String command = u"All,EX";
        host::MainForm().AP_ExeCmd(command);
    });
    EXPECT_EQ(Ask({.values = {u"abc"}}, {FocusIsOnInput(), Keys({'Q'}), Shows(u"q"), endAll}), kNoAnswer);
    EXPECT_EQ(Kept(u"K4TBACKPROCESS"), u"");
    ExpectNothingIsLeft();
}

/// A program may show a hidden window while the dialog is open, for example in a timer's handler.
TEST_F(Query, WindowShownWhileTheDialogIsOpen_IsDisabled) {
    ShowWindow(owner_, SW_HIDE);
    const auto showOwner = Do([this](HWND dialog) {
        ShowWindow(owner_, SW_SHOWNA);
        EXPECT_FALSE(IsWindowEnabled(owner_));
        EXPECT_TRUE(IsWindowEnabled(dialog));
    });
    EXPECT_EQ(Ask({.values = {u"abc"}}, {showOwner, ClickOn(L"Accept")}), (Answer{u"abc", 0}));
    EXPECT_TRUE(IsWindowEnabled(owner_));
}

TEST_F(Query, WindowDisabledBeforeTheDialog_StaysDisabled) {
    ShowWindow(owner_, SW_HIDE);
    EnableWindow(owner_, FALSE);
    EXPECT_EQ(Ask({.values = {u"abc"}}, {ClickOn(L"Accept")}), (Answer{u"abc", 0}));
    EXPECT_FALSE(IsWindowEnabled(owner_));
}

TEST_F(Query, OwnerHiddenWhileTheDialogIsOpen_DialogStaysOpen) {
    const auto hideOwner = Do([this](HWND dialog) {
        ShowWindow(owner_, SW_HIDE);
        EXPECT_TRUE(IsWindowVisible(dialog));
    });
    EXPECT_EQ(Ask({.values = {u"abc"}}, {FocusIsOnInput(), hideOwner, Keys({'Q'}), Shows(u"q"), kEnter}),
              (Answer{u"q", 0}));
    EXPECT_TRUE(IsWindowEnabled(owner_));
    EXPECT_FALSE(IsWindowVisible(owner_));
    EXPECT_EQ(runtime::LoadedForms().Count(), 0u);
}

}  // namespace
}  // namespace tests
