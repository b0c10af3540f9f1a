// Tests the main form's Win32 window. When other code shows the window, the form must hide it again.
#include <gtest/gtest.h>

#include <functional>
#include <thread>

#include "host/clsQmxBackProcess.h"
#include "host/frmBackProcessMain.h"
#include "routing/ModuleList.h"
#include "tests/support/ComponentFixture.h"

namespace host {
namespace {

class MainFormWindow : public tests::ComponentTest {
 protected:
    ~MainFormWindow() override { object_.Terminate(); }

    bool Load() {
        std::int16_t mode = 0;
        return object_.Load(mode);
    }
    HWND Window() { return reinterpret_cast<HWND>(form_.Handle()); }
    /// Checks that the form is hidden again when `show` returns, and that the form can still be loaded.
    void ExpectHiddenAfter(const std::function<void(HWND window)>& show) {
        const HWND window = Window();
        show(window);
        EXPECT_FALSE(IsWindowVisible(window));
        EXPECT_FALSE(form_.Visible());
        EXPECT_FALSE(routing::IsFormShown(form_));
        EXPECT_EQ(Window(), window);
        EXPECT_TRUE(Load());
        EXPECT_FALSE(IsWindowVisible(window));
    }

    clsQmxBackProcess object_{[](String&, String&) {}};
    frmBackProcessMain& form_ = MainForm();
};

TEST_F(MainFormWindow, ShownWithShowWindow_IsHiddenAtOnce) {
    const int commands[] = {SW_SHOW,     SW_SHOWNORMAL, SW_SHOWNA,        SW_SHOWNOACTIVATE, SW_RESTORE,
                            SW_MAXIMIZE, SW_MINIMIZE,   SW_SHOWMINIMIZED, SW_SHOWMINNOACTIVE};
    for (const bool isLoadedByClient : {false, true}) {
        for (const int command : commands) {
            SCOPED_TRACE(command);
            if (isLoadedByClient) {
                EXPECT_TRUE(Load());
            }
            ExpectHiddenAfter([command](HWND window) { ShowWindow(window, command); });
            form_.Unload();
        }
    }
}

TEST_F(MainFormWindow, ShownWithShowWindow_KeepsTheRequestedState) {
    Load();
    const auto stateAfter = [this](int command) {
        ShowWindow(Window(), command);
        return form_.State();
    };
    EXPECT_EQ(stateAfter(SW_SHOWNORMAL), runtime::WindowState::kNormal);
    EXPECT_EQ(stateAfter(SW_MAXIMIZE), runtime::WindowState::kMaximised);
    EXPECT_EQ(stateAfter(SW_MINIMIZE), runtime::WindowState::kMinimised);
}

TEST_F(MainFormWindow, ShownBySetWindowPosOrStyle_IsHiddenAtOnce) {
    Load();
    ExpectHiddenAfter([](HWND window) { SetWindowPos(window, HWND_TOP, 0, 0, 100, 100, SWP_SHOWWINDOW); });
    ExpectHiddenAfter(
        [](HWND window) { SetWindowLongW(window, GWL_STYLE, GetWindowLongW(window, GWL_STYLE) | WS_VISIBLE); });
}

TEST_F(MainFormWindow, ShownByAnotherThread_IsHiddenAtOnce) {
    Load();
    ExpectHiddenAfter([](HWND window) {
        std::thread other([window] {
            ShowWindow(window, SW_SHOWNORMAL);
            PostMessageW(window, WM_NULL, 0, 0);
        });
        MSG message{};
        while (GetMessageW(&message, window, 0, 0) > 0 && message.message != WM_NULL) DispatchMessageW(&message);
        other.join();
    });
}

// The test replaces the form's window procedure for a moment. The form therefore misses the message that it was shown.
TEST_F(MainFormWindow, KeyOrActivation_HidesAVisibleForm) {
    Load();
    const auto hides = [this](UINT message, WPARAM wParam) {
        const LONG_PTR own = SetWindowLongPtrW(Window(), GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&DefWindowProcW));
        ShowWindow(Window(), SW_SHOWNA);
        SetWindowLongPtrW(Window(), GWLP_WNDPROC, own);
        ASSERT_TRUE(IsWindowVisible(Window())) << message;
        SendMessageW(Window(), message, wParam, 0);
        EXPECT_FALSE(IsWindowVisible(Window())) << message;
    };
    hides(WM_ACTIVATE, WA_ACTIVE);
    hides(WM_KEYDOWN, 'A');
    hides(WM_KEYUP, 'A');
    hides(WM_CHAR, 'a');
}

}  // namespace
}  // namespace host
