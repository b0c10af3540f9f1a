// Tests the system's message box. The runtime's port shows a real box. The test operates the box from inside its modal
// loop.
#include <gmock/gmock.h>

#include <algorithm>
#include <string>

#include "runtime/Error.h"
#include "runtime/win32/Callback.h"
#include "runtime/win32/Win32MessageBox.h"
#include "tests/windows/AboveOwner.h"
#include "tests/windows/DialogSteps.h"
#include "tests/windows/Queues.h"
#include "tests/windows/RecordedHelp.h"
#include "tests/windows/WindowTexts.h"

namespace runtime::win32 {
namespace {

using testing::ElementsAre;
using tests::DialogDriver;
using tests::Do;
using tests::IsClass;
using tests::Press;
using tests::SendKeys;
using tests::ShownDialog;
using tests::Steps;
using tests::TakeQuit;
using tests::Type;

constexpr std::int32_t kHelpButton = 0x4000;
const DialogDriver::Step kQuit = Do([](HWND) { PostQuitMessage(5); });

/// What an open box shows to the user.
struct Seen {
    String title;
    String prompt;
    LONG promptStyle = 0;
    LONG extendedStyle = 0;
    HWND owner = nullptr;
    bool ownerIsEnabled = true;
    std::vector<int> buttons;  ///< identifiers, sorted
};

BOOL CALLBACK SeeChild(HWND child, LPARAM into) noexcept {
    if (!IsWindowVisible(child)) return TRUE;
    Seen& seen = *reinterpret_cast<Seen*>(into);
    if (IsClass(child, L"Button")) seen.buttons.push_back(GetDlgCtrlID(child));
    const bool isText = IsClass(child, L"Static") && (GetWindowLongW(child, GWL_STYLE) & SS_TYPEMASK) != SS_ICON;
    if (isText) {
        seen.prompt = TextOf(child);
        seen.promptStyle = GetWindowLongW(child, GWL_STYLE);
    }
    return TRUE;
}

DialogDriver::Step See(Seen& seen) {
    return [&seen](HWND box) {
        seen = {};
        seen.title = TextOf(box);
        seen.extendedStyle = GetWindowLongW(box, GWL_EXSTYLE);
        seen.owner = GetWindow(box, GW_OWNER);
        seen.ownerIsEnabled = seen.owner && IsWindowEnabled(seen.owner);
        EnumChildWindows(box, SeeChild, reinterpret_cast<LPARAM>(&seen));
        std::ranges::sort(seen.buttons);
        return true;
    };
}

class SystemMessageBox : public tests::AboveOwner<testing::Test> {
 protected:
    /// Shows the box, runs `steps` and returns the answer.
    std::int32_t Show(std::int32_t flags, Steps steps, StringView prompt = u"Prompt", const MessageHelp& help = {}) {
        const DialogDriver driver(std::move(steps));
        return box_.Show(prompt, flags, u"Title", help);
    }
    Seen Look(std::int32_t flags, StringView prompt = u"Prompt") {
        Seen seen;
        Show(flags, {See(seen), Type(VK_RETURN)}, prompt);
        return seen;
    }

    static void LeaveNoWindowActive() {
        SetActiveWindow(nullptr);
        SetForegroundWindow(GetDesktopWindow());
        ASSERT_EQ(GetActiveWindow(), nullptr);
    }

    HelpControl helpControl_{tests::RecordingHelp()};
    Win32MessageBox box_{helpControl_};
};

TEST_F(SystemMessageBox, PromptAndTitle_AreShown) {
    const Seen seen = Look(MB_OK);
    EXPECT_EQ(seen.prompt, u"Prompt");
    EXPECT_EQ(seen.title, u"Title");
}

TEST_F(SystemMessageBox, Style_ChoosesTheButtons) {
    EXPECT_EQ(Look(MB_OK).buttons.size(), 1u);
    EXPECT_THAT(Look(MB_OKCANCEL).buttons, ElementsAre(IDOK, IDCANCEL));
    EXPECT_THAT(Look(MB_ABORTRETRYIGNORE).buttons, ElementsAre(IDABORT, IDRETRY, IDIGNORE));
    EXPECT_THAT(Look(MB_YESNOCANCEL).buttons, ElementsAre(IDCANCEL, IDYES, IDNO));
    EXPECT_THAT(Look(MB_YESNO).buttons, ElementsAre(IDYES, IDNO));
    EXPECT_THAT(Look(MB_RETRYCANCEL).buttons, ElementsAre(IDCANCEL, IDRETRY));
    EXPECT_THAT(Look(MB_YESNO | kHelpButton).buttons, ElementsAre(IDYES, IDNO, IDHELP));
}

TEST_F(SystemMessageBox, EachButton_ReturnsItsCode) {
    EXPECT_EQ(Show(MB_OKCANCEL, {Press(IDOK)}), 1);
    EXPECT_EQ(Show(MB_OKCANCEL, {Press(IDCANCEL)}), 2);
    EXPECT_EQ(Show(MB_ABORTRETRYIGNORE, {Press(IDABORT)}), 3);
    EXPECT_EQ(Show(MB_ABORTRETRYIGNORE, {Press(IDRETRY)}), 4);
    EXPECT_EQ(Show(MB_ABORTRETRYIGNORE, {Press(IDIGNORE)}), 5);
    EXPECT_EQ(Show(MB_YESNO, {Press(IDYES)}), 6);
    EXPECT_EQ(Show(MB_YESNO, {Press(IDNO)}), 7);
}

TEST_F(SystemMessageBox, Enter_PressesTheDefaultButton) {
    EXPECT_EQ(Show(MB_OK, {Type(VK_RETURN)}), 1);
    EXPECT_EQ(Show(MB_YESNOCANCEL, {Type(VK_RETURN)}), 6);
    EXPECT_EQ(Show(MB_YESNOCANCEL | MB_DEFBUTTON2, {Type(VK_RETURN)}), 7);
    EXPECT_EQ(Show(MB_YESNOCANCEL | MB_DEFBUTTON3, {Type(VK_RETURN)}), 2);
}

TEST_F(SystemMessageBox, EscapeOrClosing_Cancels) {
    EXPECT_EQ(Show(MB_OKCANCEL, {Type(VK_ESCAPE)}), 2);
    EXPECT_EQ(Show(MB_YESNOCANCEL, {[](HWND box) { return PostMessageW(box, WM_SYSCOMMAND, SC_CLOSE, 0) != FALSE; }}),
              2);
}

TEST_F(SystemMessageBox, ActiveWindow_IsTheOwner) {
    const Seen seen = Look(MB_OK);
    EXPECT_EQ(seen.owner, owner_);
    EXPECT_FALSE(seen.ownerIsEnabled);
    EXPECT_TRUE(IsWindowEnabled(owner_));
    EXPECT_EQ(GetActiveWindow(), owner_);
}

TEST_F(SystemMessageBox, NoActiveWindow_BoxIsShown) {
    ShowWindow(owner_, SW_HIDE);
    EXPECT_EQ(Show(MB_OK | MB_TASKMODAL, {Type(VK_RETURN)}), 1);
}

TEST_F(SystemMessageBox, NoActiveWindow_DisablesTheThreadsWindows) {
    LeaveNoWindowActive();
    for (const std::int32_t mode : {MB_APPLMODAL, MB_SYSTEMMODAL, MB_TASKMODAL}) {
        const auto look = [this, mode](HWND box) {
            EXPECT_EQ(GetWindow(box, GW_OWNER), nullptr);
            EXPECT_FALSE(IsWindowEnabled(owner_)) << mode;
            EXPECT_EQ((GetWindowLongW(box, GWL_EXSTYLE) & WS_EX_TOPMOST) != 0, mode == MB_SYSTEMMODAL);
            return true;
        };
        EXPECT_EQ(Show(MB_YESNO | mode, {look, Press(IDNO)}), 7);
        EXPECT_TRUE(IsWindowEnabled(owner_)) << mode;
    }
}

TEST_F(SystemMessageBox, NoActiveWindow_DisablesHiddenWindows) {
    LeaveNoWindowActive();
    ShowWindow(owner_, SW_HIDE);
    const auto look = [this](HWND box) {
        EXPECT_EQ(GetWindow(box, GW_OWNER), nullptr);
        EXPECT_FALSE(IsWindowEnabled(owner_));
        return true;
    };
    EXPECT_EQ(Show(MB_YESNO, {look, Press(IDNO)}), 7);
    EXPECT_TRUE(IsWindowEnabled(owner_));
}

TEST_F(SystemMessageBox, QuitMessageWithoutAnOwner_EnablesTheWindows) {
    LeaveNoWindowActive();
    EXPECT_EQ(Show(MB_YESNO, {kQuit}), 2);
    EXPECT_EQ(TakeQuit(), 5);
    EXPECT_TRUE(IsWindowEnabled(owner_));
}

TEST_F(SystemMessageBox, SystemModal_IsTopmost) {
    EXPECT_FALSE(Look(MB_ICONEXCLAMATION).extendedStyle & WS_EX_TOPMOST);
    EXPECT_TRUE(Look(MB_ICONEXCLAMATION | MB_SYSTEMMODAL).extendedStyle & WS_EX_TOPMOST);
}

TEST_F(SystemMessageBox, UnusualCharacters_AreShownUnchanged) {
    const String prompt = u"a & b && \"%<\t\u65E5\u672C \U0001F600 \u05D0\u05D1 \xD800";
    const Seen seen = Look(MB_OK, prompt);
    EXPECT_EQ(seen.prompt, prompt);
    EXPECT_TRUE(seen.promptStyle & SS_NOPREFIX);
}

TEST_F(SystemMessageBox, PromptWithANul_IsNotCut) {
    EXPECT_EQ(Look(MB_OK, StringView(u"first\0second", 12)).prompt, u"first second");
}

TEST_F(SystemMessageBox, EmptyPrompt_BoxIsShown) {
    EXPECT_EQ(Look(MB_OK, u"").title, u"Title");
}

TEST_F(SystemMessageBox, PromptOfAMillionCharacters_CanBeAnswered) {
    String lines;
    while (lines.size() < 1 << 20) lines += String(78, u'x') + u"\r\n";
    EXPECT_EQ(Show(MB_YESNO | MB_DEFBUTTON2, {Type(VK_RETURN)}, lines), 7);
}

TEST_F(SystemMessageBox, UnknownButtons_AreAnInvalidArgument) {
    for (const std::int32_t flags : {7, 15, 7 + 4096}) {
        try {
            Show(flags, {});
            ADD_FAILURE() << "no error for the flags " << flags;
        } catch (const Error& error) {
            EXPECT_EQ(error.Number(), kInvalidProcedureCall);
        }
    }
}

TEST_F(SystemMessageBox, HandlerFails_CallerGetsTheError) {
    const auto fail = Do([](HWND) { Callback::Guard(false, []() -> bool { throw Error(kOverflow); }); });
    EXPECT_THROW(Show(MB_OK, {fail, Type(VK_RETURN)}), Error);
    EXPECT_EQ(Show(MB_OK, {Type(VK_RETURN)}), 1);
}

TEST_F(SystemMessageBox, QuitMessage_CancelsAndReachesTheOuterLoop) {
    EXPECT_EQ(Show(MB_YESNO, {kQuit}), 2);
    EXPECT_EQ(TakeQuit(), 5);
    EXPECT_TRUE(IsWindowEnabled(owner_));
}

TEST_F(SystemMessageBox, OwnerDestroyed_Cancels) {
    const auto destroyOwner = [this](HWND) { return DestroyWindow(owner_) != FALSE; };
    EXPECT_EQ(Show(MB_YESNO, {destroyOwner}), 2);
    EXPECT_EQ(ShownDialog(), nullptr);
}

bool IsWine() {
    return GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "wine_get_version") != nullptr;
}

/// Sends the message that the system sends for F1 and for the Help button.
bool AskForHelp(HWND box) {
    HELPINFO help{};
    help.cbSize = sizeof help;
    help.iContextType = HELPINFO_WINDOW;
    help.hItemHandle = box;
    SendMessageW(box, WM_HELP, 0, reinterpret_cast<LPARAM>(&help));
    return true;
}

/// Waits for five ticks of the driver, because the box must handle its messages first.
DialogDriver::Step Pause() {
    return [ticks = 5](HWND) mutable { return --ticks == 0; };
}

class MessageBoxHelp : public SystemMessageBox {
 protected:
    MessageBoxHelp() : before_(tests::RecordedHelp()) {}

    /// Waits until the help control was called.
    DialogDriver::Step HelpIsAsked() {
        return [this](HWND) { return tests::RecordedHelp() != before_; };
    }
    /// Returns the calls of the help control since the test began.
    String NewCalls() const {
        const String now = tests::RecordedHelp();
        return now.starts_with(before_) ? now.substr(before_.size()) : now;
    }
    String Call(StringView rest) const {
        return FromAscii(std::to_string(reinterpret_cast<std::uintptr_t>(owner_))) + u" " + String(rest) + u"\n";
    }

    String before_;
};

TEST_F(MessageBoxHelp, HelpEvent_OpensTheTopicAndTheBoxStays) {
    EXPECT_EQ(
        Show(MB_YESNO | kHelpButton, {AskForHelp, HelpIsAsked(), Press(IDNO)}, u"", {u"C:\\Gr\u00F6\u00DFe.chm", 7}),
        7);
    EXPECT_EQ(NewCalls(), Call(u"C:\\Gr\u00F6\u00DFe.chm 15 7"));
}

TEST_F(MessageBoxHelp, HelpEventWithoutAContext_OpensTheContents) {
    Show(MB_OK | kHelpButton, {AskForHelp, HelpIsAsked(), Type(VK_RETURN)}, u"", {u"C:\\a.chm", 0});
    EXPECT_EQ(NewCalls(), Call(u"C:\\a.chm 1 0"));
}

TEST_F(MessageBoxHelp, F1WithoutAHelpButton_OpensTheTopic) {
    const auto pressF1 = [](HWND) { return SendKeys({VK_F1}); };
    EXPECT_EQ(Show(MB_YESNO, {pressF1, HelpIsAsked(), Press(IDYES)}, u"", {u"C:\\a.chm", -1}), 6);
    EXPECT_EQ(NewCalls(), Call(u"C:\\a.chm 15 4294967295"));
}

TEST_F(MessageBoxHelp, HelpButton_OpensTheTopicAndTheBoxStays) {
    EXPECT_EQ(Show(MB_YESNO | kHelpButton, {Press(IDHELP), Pause(), Press(IDNO)}, u"", {u"C:\\a.chm", 7}), 7);
    // Wine 8 and Wine 10 show the button but ignore clicks on it. When a version of Wine supports the button, remove
    // this special case and the line about the button under "Deviations of Wine" in docs/TESTING.md.
    EXPECT_EQ(NewCalls(), IsWine() ? u"" : Call(u"C:\\a.chm 15 7"));
}

TEST_F(MessageBoxHelp, NoHelpFile_NothingIsOpened) {
    EXPECT_EQ(Show(MB_YESNO | kHelpButton, {AskForHelp, Pause(), Press(IDNO)}, u"", {u"", 7}), 7);
    EXPECT_EQ(tests::RecordedHelp(), before_);
}

TEST_F(MessageBoxHelp, NestedBoxes_EachBoxOpensItsOwnHelp) {
    const auto showInner = [this](HWND) {
        EXPECT_EQ(box_.Show(u"Inner", MB_YESNO | kHelpButton, u"Title", {u"C:\\inner.chm", 2}), 7);
        return true;
    };
    const auto isOuterAsked = [this](HWND) { return NewCalls().find(u"outer") != String::npos; };
    EXPECT_EQ(Show(MB_YESNO | kHelpButton,
                   {showInner, AskForHelp, HelpIsAsked(), Press(IDNO), AskForHelp, isOuterAsked, Press(IDYES)},
                   u"Outer", {u"C:\\outer.chm", 1}),
              6);
    const String calls = NewCalls();
    EXPECT_NE(calls.find(u" C:\\inner.chm 15 2\n"), String::npos);
    EXPECT_TRUE(calls.ends_with(Call(u"C:\\outer.chm 15 1")));
}

TEST(HelpControl, MissingControl_OpensNothing) {
    EXPECT_FALSE(HelpControl(u"C:\\none.ocx").Open(nullptr, u"C:\\a.chm", 1));
}

TEST(HelpControl, LibraryWithoutTheEntry_OpensNothing) {
    EXPECT_FALSE(HelpControl(InSystemFolder(u"version.dll")).Open(nullptr, u"C:\\a.chm", 1));
}

}  // namespace
}  // namespace runtime::win32
