// Tests forms with real windows. Messages simulate actions of the user, of other programs and of the system. Also
// checks that no window, message or window class remains.
#include "runtime/win32/Win32Window.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <thread>
#include <vector>

#include "runtime/Error.h"
#include "runtime/LoadedForms.h"
#include "runtime/win32/Pixels.h"
#include "tests/support/ErrorOf.h"
#include "tests/support/HandledForm.h"
#include "tests/support/RuntimeFixture.h"
#include "tests/windows/Queues.h"

namespace runtime::win32 {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using tests::ErrorOf;

constexpr UINT kPlaceOnly = SWP_NOZORDER | SWP_NOACTIVATE;

class RealWindow : public tests::RuntimeTest {
 protected:
    static HWND WindowOf(Form& form) { return reinterpret_cast<HWND>(form.Handle()); }
    HWND Window() { return WindowOf(form_); }
    void Send(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) { SendMessageW(Window(), message, wParam, lParam); }
    /// Returns the window's outer bounds as the system reports them, in twips.
    static Rect BoundsOf(HWND window) {
        RECT outer{};
        GetWindowRect(window, &outer);
        return ToTwips(outer);
    }
    static Rect BoundsOf(Form& form) { return {form.Left(), form.Top(), form.Width(), form.Height()}; }

    tests::HandledForm form_;
};

TEST_F(RealWindow, Close_UnloadsWithReasonUserBeforeItReturns) {
    const HWND window = Window();
    SendMessageW(window, WM_CLOSE, 0, 0);
    EXPECT_FALSE(IsWindow(window));
    EXPECT_FALSE(form_.IsLoaded());
    EXPECT_THAT(form_.log, ElementsAre("load", "query 0", "unload"));
}

// The default handling would send WM_HELP to the window's owner.
TEST_F(RealWindow, HelpMessage_IsNotPassedToTheOwner) {
    HELPINFO help{};
    help.cbSize = sizeof help;
    EXPECT_EQ(SendMessageW(Window(), WM_HELP, 0, reinterpret_cast<LPARAM>(&help)), TRUE);
}

TEST_F(RealWindow, CloseMayBeRefused) {
    form_.refusesQuery = true;
    Send(WM_CLOSE);
    EXPECT_TRUE(form_.IsLoaded());
    EXPECT_TRUE(IsWindow(Window()));
}

TEST_F(RealWindow, CloseFailsInDoEvents_DoEventsThrowsTheError) {
    form_.onUnload = [] { throw Error(kOverflow); };
    const HWND window = Window();
    PostMessageW(window, WM_CLOSE, 0, 0);
    EXPECT_EQ(ErrorOf([] { CurrentPorts().windows.DoEvents(); }), kOverflow);
    EXPECT_FALSE(IsWindow(window));
    EXPECT_EQ(ErrorOf([] { CurrentPorts().windows.DoEvents(); }), 0);
}

TEST_F(RealWindow, HandlerFailsInTheClientsLoop_ErrorIsNotThrown) {
    form_.onUnload = [] { throw Error(kOverflow); };
    Send(WM_CLOSE);
    EXPECT_FALSE(form_.IsLoaded());
    form_.onUnload = nullptr;
    EXPECT_EQ(ErrorOf([&] { form_.SetWidth(6000); }), 0);
}

TEST_F(RealWindow, SessionEnds_UnloadsWithReasonSystemEnd) {
    const HWND window = Window();
    SendMessageW(window, WM_ENDSESSION, TRUE, 0);
    EXPECT_FALSE(IsWindow(window));
    EXPECT_THAT(form_.log, ElementsAre("load", "query 2", "unload"));
}

TEST_F(RealWindow, SessionEndIsCancelled_NothingHappens) {
    Send(WM_ENDSESSION, FALSE);
    EXPECT_TRUE(form_.IsLoaded());
    EXPECT_THAT(form_.log, ElementsAre("load"));
}

TEST_F(RealWindow, OtherCodeDestroysTheWindow_FormIsUnloaded) {
    form_.refusesQuery = true;
    const HWND window = Window();
    DestroyWindow(window);
    EXPECT_FALSE(form_.IsLoaded());
    EXPECT_EQ(LoadedForms().Count(), 0u);
    EXPECT_THAT(form_.log, ElementsAre("load", "query 2"));
    EXPECT_NE(Window(), nullptr);
    EXPECT_THAT(form_.log, ElementsAre("load", "query 2", "load"));
}

/// Counts access violations, because the system hides them in a window procedure.
class MemoryFaults {
 public:
    MemoryFaults() { count_ = 0; }
    MemoryFaults(const MemoryFaults&) = delete;
    MemoryFaults& operator=(const MemoryFaults&) = delete;
    ~MemoryFaults() {
        RemoveVectoredExceptionHandler(handler_);
        EXPECT_EQ(count_, 0);
    }

 private:
    static LONG CALLBACK Count(EXCEPTION_POINTERS* pointers) {
        if (pointers->ExceptionRecord->ExceptionCode == EXCEPTION_ACCESS_VIOLATION) ++count_;
        return EXCEPTION_CONTINUE_SEARCH;
    }

    static inline int count_ = 0;
    void* const handler_ = AddVectoredExceptionHandler(1, Count);
};

TEST_F(RealWindow, ForgedDestruction_UnloadsTheFormAndEndsTheWindow) {
    const MemoryFaults none;
    const HWND window = Window();
    Send(WM_DESTROY);
    EXPECT_FALSE(form_.IsLoaded());
    SendMessageW(window, WM_NCCREATE, 0, 0);
    CurrentPorts().windows.DoEvents();
    EXPECT_FALSE(IsWindow(window));
    EXPECT_NE(Window(), nullptr);
    EXPECT_THAT(form_.log, ElementsAre("load", "query 2", "unload", "load"));
}

TEST_F(RealWindow, MessagesWithoutTheirData_ChangeNothing) {
    const MemoryFaults none;
    Send(WM_NCCREATE);
    Send(WM_GETMINMAXINFO);
    EXPECT_TRUE(IsWindow(Window()));
    EXPECT_THAT(form_.log, ElementsAre("load"));
}

TEST_F(RealWindow, CreationMessageFromOtherCode_ChangesNothing) {
    const MemoryFaults none;
    wchar_t name[64];
    ASSERT_NE(GetClassNameW(Window(), name, 64), 0);
    EXPECT_EQ(CreateWindowExW(0, name, L"", 0, 0, 0, 0, 0, nullptr, nullptr, GetModuleHandleW(nullptr), nullptr),
              nullptr);
    CREATESTRUCTW forged{};
    forged.lpCreateParams = this;
    Send(WM_NCCREATE, 0, reinterpret_cast<LPARAM>(&forged));
    form_.Unload();
    EXPECT_THAT(form_.log, ElementsAre("load", "query 1", "unload"));
}

TEST_F(RealWindow, AbandonedOnAnotherThread_WindowDestroysItself) {
    const HWND window = Window();
    std::thread([&] { form_.AbandonWindow(); }).join();
    EXPECT_FALSE(form_.IsLoaded());
    EXPECT_TRUE(IsWindow(window));
    CurrentPorts().windows.DoEvents();
    EXPECT_FALSE(IsWindow(window));
    EXPECT_THAT(form_.log, ElementsAre("load"));
}

TEST_F(RealWindow, KeysReachTheHandlers) {
    Send(WM_KEYDOWN, 'A');
    Send(WM_CHAR, u'ä');
    Send(WM_KEYUP, 'A');
    Send(WM_SYSKEYDOWN, 'B');
    Send(WM_SYSKEYUP, 'B');
    EXPECT_THAT(form_.log, ElementsAre("load", "down 65 0", "press 228", "up 65 0", "down 66 0", "up 66 0"));
}

TEST_F(RealWindow, KeyHandlerMayUnloadTheForm) {
    form_.onKey = [&] { form_.Unload(); };
    for (const UINT message : {WM_KEYDOWN, WM_CHAR, WM_KEYUP, WM_SYSKEYDOWN, WM_SYSKEYUP}) {
        const HWND window = Window();
        SendMessageW(window, message, 'A', 0);
        EXPECT_FALSE(IsWindow(window)) << message;
    }
}

// The test fills the memory of the destroyed window's object with the handle of another window.
TEST_F(RealWindow, KeyHandlerLoadsTheFormAgain_AltF4ClosesNoWindow) {
    tests::HandledForm other(u"other");
    const std::vector<HWND> handles(sizeof(Win32Window) / sizeof(HWND), WindowOf(other));
    std::vector<std::vector<HWND>> freed;
    form_.onKey = [&] {
        form_.Unload();
        freed.assign(100, handles);
        form_.EnsureLoaded();
    };
    Send(WM_SYSKEYDOWN, VK_F4, static_cast<LPARAM>(KF_ALTDOWN) << 16);
    CurrentPorts().windows.DoEvents();
    EXPECT_THAT(form_.log, ElementsAre("load", "down 115 0", "query 1", "unload", "load"));
    EXPECT_THAT(other.log, ElementsAre("load"));
}

Form* formToUnload = nullptr;

LRESULT CALLBACK UnloadForm(HWND window, UINT message, WPARAM wParam, LPARAM lParam) noexcept {
    if (message == WM_SYSCOLORCHANGE) formToUnload->Unload();
    return DefWindowProcW(window, message, wParam, lParam);
}

// After the unload, the form has no window handle. A redraw with a null handle would repaint the whole screen.
TEST_F(RealWindow, ControlUnloadsTheFormOnNewColours_NoOtherWindowIsPainted) {
    const MemoryFaults none;
    tests::HandledForm other(u"other");
    other.SetVisible(true);
    CurrentPorts().windows.DoEvents();
    UpdateWindow(WindowOf(other));
    ASSERT_FALSE(GetUpdateRect(WindowOf(other), nullptr, FALSE));
    formToUnload = &form_;
    SetWindowLongPtrW(GetDlgItem(Window(), 100), GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&UnloadForm));
    Send(WM_SYSCOLORCHANGE);
    EXPECT_FALSE(form_.IsLoaded());
    EXPECT_FALSE(GetUpdateRect(WindowOf(other), nullptr, FALSE));
}

TEST_F(RealWindow, OtherCodeResizes_FormHasTheNewSizeAndRaisesResize) {
    SetWindowPos(Window(), nullptr, 10, 20, 400, 300, kPlaceOnly);
    EXPECT_EQ(BoundsOf(form_), (Rect{ToTwips(10), ToTwips(20), ToTwips(400), ToTwips(300)}));
    EXPECT_THAT(form_.log, ElementsAre("load", "resize"));
    EXPECT_EQ(form_.Controls().front()->Bounds().width, form_.InnerSize().width);
}

TEST_F(RealWindow, OtherCodeMoves_FormHasThePositionWithoutResize) {
    form_.EnsureLoaded();
    SetWindowPos(Window(), nullptr, 33, 44, 0, 0, kPlaceOnly | SWP_NOSIZE);
    EXPECT_EQ(form_.Left(), ToTwips(33));
    EXPECT_EQ(form_.Top(), ToTwips(44));
    EXPECT_THAT(form_.log, ElementsAre("load"));
}

TEST_F(RealWindow, ResizeHandlerMayUnloadTheForm) {
    const HWND window = Window();
    form_.onResize = [&] { form_.Unload(); };
    SetWindowPos(window, nullptr, 10, 20, 400, 300, kPlaceOnly);
    EXPECT_FALSE(IsWindow(window));
    EXPECT_FALSE(form_.IsLoaded());
}

TEST_F(RealWindow, MinimisingAndRestoringByTheUserRaiseResize) {
    form_.SetVisible(true);
    const Rect normal = BoundsOf(form_);
    form_.log.clear();
    ShowWindow(Window(), SW_MINIMIZE);
    EXPECT_EQ(form_.State(), WindowState::kMinimised);
    EXPECT_EQ(BoundsOf(form_), normal);
    EXPECT_THAT(form_.log, ElementsAre("resize"));
    form_.log.clear();
    ShowWindow(Window(), SW_RESTORE);
    EXPECT_EQ(form_.State(), WindowState::kNormal);
    EXPECT_EQ(BoundsOf(form_), normal);
    EXPECT_THAT(form_.log, Contains("resize").Times(1));
}

TEST_F(RealWindow, MinimisedInTheFirstResize_AppearsMinimised) {
    form_.onResize = [&] { form_.SetState(WindowState::kMinimised); };
    form_.SetVisible(true);
    EXPECT_TRUE(IsIconic(Window()));
    EXPECT_TRUE(IsWindowVisible(Window()));
    EXPECT_EQ(form_.State(), WindowState::kMinimised);
}

TEST_F(RealWindow, HiddenMinimisedWindow_FormKeepsItsNormalBounds) {
    form_.SetVisible(true);
    const Rect normal = BoundsOf(form_);
    form_.SetState(WindowState::kMinimised);
    form_.SetVisible(false);
    form_.SetState(WindowState::kNormal);
    ASSERT_TRUE(IsIconic(Window()));
    SetWindowPos(Window(), nullptr, 5, 6, 0, 0, kPlaceOnly | SWP_NOSIZE);
    EXPECT_EQ(BoundsOf(form_), normal);
}

TEST_F(RealWindow, MayBeOnePixelLarge) {
    tests::HandledForm tiny(u"tiny", {ToTwips(1), ToTwips(1)});
    EXPECT_EQ(tiny.InnerSize(), (Size{ToTwips(1), ToTwips(1)}));
    EXPECT_EQ(BoundsOf(tiny), BoundsOf(WindowOf(tiny)));
    tiny.SetWidth(ToTwips(1));
    EXPECT_EQ(BoundsOf(tiny), BoundsOf(WindowOf(tiny)));
    tiny.SetHeight(ToTwips(1));
    EXPECT_EQ(BoundsOf(tiny), BoundsOf(WindowOf(tiny)));
    tiny.SetVisible(true);
    EXPECT_EQ(BoundsOf(tiny), BoundsOf(WindowOf(tiny)));
}

/// Counts a message that the forms of this thread receive.
class CountedMessage {
 public:
    explicit CountedMessage(UINT message)
        : hook_(SetWindowsHookExW(WH_CALLWNDPROC, See, nullptr, GetCurrentThreadId())) {
        message_ = message;
        count_ = 0;
    }
    CountedMessage(const CountedMessage&) = delete;
    CountedMessage& operator=(const CountedMessage&) = delete;
    ~CountedMessage() { UnhookWindowsHookEx(hook_); }

    int Count() const { return count_; }

 private:
    static LRESULT CALLBACK See(int code, WPARAM wParam, LPARAM lParam) noexcept {
        const auto& sent = *reinterpret_cast<const CWPSTRUCT*>(lParam);
        wchar_t name[64]{};
        GetClassNameW(sent.hwnd, name, 64);
        if (code == HC_ACTION && sent.message == message_ && ToString(name) == u"K4TBackProcess.Form") ++count_;
        return CallNextHookEx(nullptr, code, wParam, lParam);
    }

    static inline UINT message_ = 0;
    static inline int count_ = 0;
    HHOOK hook_;
};

TEST_F(RealWindow, Created_HasTheFinalPlaceAtOnce) {
    const CountedMessage changes(WM_WINDOWPOSCHANGING);
    form_.EnsureLoaded();
    EXPECT_EQ(changes.Count(), 0);
}

TEST_F(RealWindow, Moved_IsNotAskedForLimits) {
    form_.EnsureLoaded();
    const CountedMessage questions(WM_GETMINMAXINFO);
    form_.Move(ToTwips(50), ToTwips(60));
    EXPECT_EQ(questions.Count(), 0);
    EXPECT_EQ(BoundsOf(form_), BoundsOf(WindowOf(form_)));
}

TEST_F(RealWindow, MayBeLargerThanTheScreen) {
    const int width = GetSystemMetrics(SM_CXSCREEN) * 3;
    const int height = GetSystemMetrics(SM_CYSCREEN) * 3;
    tests::HandledForm huge(u"huge", {ToTwips(width), ToTwips(height)});
    EXPECT_EQ(huge.InnerSize(), (Size{ToTwips(width), ToTwips(height)}));
    huge.SetVisible(true);
    EXPECT_EQ(BoundsOf(huge), BoundsOf(WindowOf(huge)));
    EXPECT_EQ(huge.InnerSize(), (Size{ToTwips(width), ToTwips(height)}));
}

TEST_F(RealWindow, RequestToQuitStaysPendingForTheOuterLoop) {
    form_.EnsureLoaded();
    PostQuitMessage(7);
    CurrentPorts().windows.DoEvents();
    CurrentPorts().windows.DoEvents();
    EXPECT_EQ(tests::TakeQuit(), 7);
    EXPECT_EQ(tests::TakeQuit(), std::nullopt);
}

TEST_F(RealWindow, WindowBounds_EqualTheFormsBounds) {
    form_.Move(8527.5F, -6412.5F);
    EXPECT_EQ(BoundsOf(form_), BoundsOf(Window()));
    form_.SetWidth(8000);
    form_.SetHeight(3001);
    EXPECT_EQ(BoundsOf(form_), BoundsOf(Window()));
    Form odd({.name = u"odd", .caption = u"", .left = 1508, .top = 742, .inner = {3001, 1507}});
    EXPECT_EQ(BoundsOf(odd), BoundsOf(WindowOf(odd)));
}

/// Shows the window of a hidden form without the form's functions.
class ShownByOtherCode : public RealWindow {
 protected:
    /// Shows the window with `command` and hides it again. Checks that the form has the same visibility and state.
    void ShowAndHide(int command) {
        form_.log.clear();
        ShowWindow(Window(), command);
        EXPECT_TRUE(form_.Visible()) << command;
        EXPECT_EQ(form_.State() == WindowState::kMinimised, IsIconic(Window()) != FALSE) << command;
        EXPECT_EQ(form_.State() == WindowState::kMaximised, IsZoomed(Window()) != FALSE) << command;
        EXPECT_THAT(form_.log, Contains("shown").Times(1)) << command;
        ShowWindow(Window(), SW_HIDE);
        EXPECT_FALSE(form_.Visible()) << command;
    }
};

TEST_F(ShownByOtherCode, ShowThenHide_FormIsVisibleThenHidden) {
    for (const int command : {SW_SHOW, SW_SHOWNORMAL, SW_SHOWNA, SW_SHOWNOACTIVATE, SW_RESTORE, SW_MAXIMIZE,
                              SW_MINIMIZE, SW_SHOWMINIMIZED, SW_SHOWMINNOACTIVE}) {
        ShowAndHide(command);
    }
}

TEST_F(ShownByOtherCode, ByPositionOrStyle_FormIsVisible) {
    SetWindowPos(Window(), nullptr, 0, 0, 0, 0, kPlaceOnly | SWP_NOMOVE | SWP_NOSIZE | SWP_SHOWWINDOW);
    EXPECT_TRUE(form_.Visible());
    form_.SetVisible(false);
    EXPECT_FALSE(IsWindowVisible(Window()));
    SetWindowLongW(Window(), GWL_STYLE, GetWindowLongW(Window(), GWL_STYLE) | WS_VISIBLE);
    EXPECT_TRUE(form_.Visible());
}

// The test replaces the form's window procedure for a moment. Therefore the form gets no message when the window is
// shown.
TEST_F(ShownByOtherCode, WindowWasShownWithoutNotice_HideHidesTheWindow) {
    const LONG_PTR own = SetWindowLongPtrW(Window(), GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&DefWindowProcW));
    ShowWindow(Window(), SW_SHOWNA);
    SetWindowLongPtrW(Window(), GWLP_WNDPROC, own);
    ASSERT_TRUE(IsWindowVisible(Window()));
    form_.SetVisible(false);
    EXPECT_FALSE(IsWindowVisible(Window()));
}

TEST_F(ShownByOtherCode, ShownHandler_MayUnloadTheForm) {
    form_.onShown = [&] { form_.Unload(); };
    const HWND window = Window();
    ShowWindow(window, SW_SHOW);
    EXPECT_FALSE(IsWindow(window));
    EXPECT_FALSE(form_.IsLoaded());
}

TEST(RegisteredMessage, NameIsConvertedToAnsi) {
    if (GetACP() != 1252) GTEST_SKIP() << "the system's code page is not 1252";
    Win32Windows windows(GetModuleHandleW(nullptr));
    EXPECT_EQ(windows.RegisterMessage(u"PELORIX"), RegisterWindowMessageA("PELORIX"));
    // The code page lacks this character, so the name has a question mark in its place.
    EXPECT_EQ(windows.RegisterMessage(u"PELORIX \u3042"), RegisterWindowMessageA("PELORIX ?"));
}

TEST(WindowClass, WindowSystemIsDestroyed_ClassIsUnregistered) {
    tests::MemoryPorts memory;
    const HINSTANCE instance = GetModuleHandleW(nullptr);
    const auto isRegistered = [instance](const wchar_t* name) {
        WNDCLASSEXW found{};
        found.cbSize = sizeof found;
        return GetClassInfoExW(instance, name, &found) != FALSE;
    };
    std::wstring name;
    for (int round = 1; round <= 2; ++round) {
        Win32Windows windows(instance);
        const Ports ports = tests::WithPort(memory.All(), windows);
        UsePorts(&ports);
        {
            tests::HandledForm form;
            form.EnsureLoaded();
            name = windows.ClassName();
            EXPECT_TRUE(isRegistered(name.c_str())) << round;
        }
        UsePorts(nullptr);
    }
    EXPECT_FALSE(isRegistered(name.c_str()));
}

}  // namespace
}  // namespace runtime::win32
