#include "tests/windows/AboveOwner.h"

#include "runtime/LoadedForms.h"
#include "runtime/Ports.h"
#include "tests/windows/DialogDriver.h"
#include "tests/windows/DialogSteps.h"

namespace tests {

void ExpectNothingIsLeft(HWND owner) {
    EXPECT_TRUE(IsWindowEnabled(owner));
    EXPECT_EQ(GetActiveWindow(), owner);
    EXPECT_EQ(ShownDialog(), nullptr);
    EXPECT_EQ(runtime::LoadedForms().Count(), 0u);
    runtime::DoEvents();
    EXPECT_GE(GetAsyncKeyState(VK_MENU), 0) << "Alt is still held down";
    GUITHREADINFO state{};
    state.cbSize = sizeof state;
    ASSERT_TRUE(GetGUIThreadInfo(GetCurrentThreadId(), &state));
    EXPECT_EQ(state.flags & GUI_INMENUMODE, 0u);
}

void PressInDialog(const wchar_t* caption) {
    PostMessageW(ButtonOf(ShownDialog(), caption), BM_CLICK, 0, 0);
}

}  // namespace tests
