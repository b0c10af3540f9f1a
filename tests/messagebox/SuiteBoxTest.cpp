#include "tests/messagebox/SuiteBoxTest.h"

#include <utility>

#include "runtime/LoadedForms.h"

namespace tests {
namespace {

constexpr wchar_t kOwnerClass[] = L"tests.Owner";
constexpr UINT kPressYes = WM_APP;

}  // namespace

SuiteBoxTest* SuiteBoxTest::current_ = nullptr;

SuiteBoxTest::SuiteBoxTest() {
    current_ = this;
    WNDCLASSW windowClass{};
    windowClass.lpfnWndProc = OwnerProcedure;
    windowClass.hInstance = GetModuleHandleW(nullptr);
    windowClass.lpszClassName = kOwnerClass;
    RegisterClassW(&windowClass);
    owner_ = CreateWindowExW(0, kOwnerClass, L"owner", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 50, 50, 300, 200, nullptr,
                             nullptr, windowClass.hInstance, nullptr);
    SetForegroundWindow(owner_);
    SetActiveWindow(owner_);
    log_.clear();
}

SuiteBoxTest::~SuiteBoxTest() {
    onDisabled_ = onEnabled_ = onActivated_ = nullptr;
    dialogs::ReleaseSuiteBox();
    DestroyWindow(owner_);
    UnregisterClassW(kOwnerClass, GetModuleHandleW(nullptr));
    current_ = nullptr;
}

void SuiteBoxTest::SetUp() {
    ASSERT_EQ(GetActiveWindow(), owner_);
}

LRESULT CALLBACK SuiteBoxTest::OwnerProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) noexcept {
    if (message == WM_ENABLE) {
        const std::string box = ShownBox() ? " with a box" : " without a box";
        current_->log_.push_back((wParam ? "enabled" : "disabled") + box);
        if (const auto& then = wParam ? current_->onEnabled_ : current_->onDisabled_) then();
    }
    if (message == WM_ACTIVATE && LOWORD(wParam) != WA_INACTIVE) {
        current_->log_.push_back("activated");
        if (current_->onActivated_) current_->onActivated_();
    }
    if (message == kPressYes) PostMessageW(ButtonOf(ShownBox(), L"&Yes"), BM_CLICK, 0, 0);
    return DefWindowProcW(window, message, wParam, lParam);
}

std::int32_t SuiteBoxTest::Ask(std::int32_t flags, Steps steps, runtime::StringView prompt) {
    const BoxDriver driver(std::move(steps));
    return dialogs::AskWithSuiteBox(prompt, flags, u"Title");
}

std::int32_t SuiteBoxTest::AskQuickly() {
    PostMessageW(owner_, kPressYes, 0, 0);
    return dialogs::AskWithSuiteBox(u"Overwrite?", 8, u"Title");
}

void SuiteBoxTest::ExpectNothingIsLeft() const {
    EXPECT_TRUE(IsWindowEnabled(owner_));
    EXPECT_EQ(GetActiveWindow(), owner_);
    EXPECT_EQ(ShownBox(), nullptr);
    EXPECT_EQ(runtime::LoadedForms().Count(), 0u);
    runtime::DoEvents();
    EXPECT_GE(GetAsyncKeyState(VK_MENU), 0) << "Alt is held";
    GUITHREADINFO state{};
    state.cbSize = sizeof state;
    ASSERT_TRUE(GetGUIThreadInfo(GetCurrentThreadId(), &state));
    EXPECT_EQ(state.flags & GUI_INMENUMODE, 0u);
}

}  // namespace tests
