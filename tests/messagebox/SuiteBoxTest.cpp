#include "tests/messagebox/SuiteBoxTest.h"

#include <utility>

#include "runtime/LoadedForms.h"

namespace tests {
namespace {

constexpr wchar_t kOwnerClass[] = L"tests.Owner";
constexpr UINT kPressYes = WM_APP;

/// The thread's own window in front; another program on the same screen may have taken the keyboard.
bool HasKeyboard(HWND box) {
    DWORD process = 0;
    GetWindowThreadProcessId(GetForegroundWindow(), &process);
    if (process != GetCurrentProcessId()) {
        SetForegroundWindow(box);
        return false;
    }
    return IsChild(box, GetFocus());
}

void AddKey(std::vector<INPUT>& inputs, WORD key, DWORD flags) {
    INPUT& input = inputs.emplace_back();
    input.type = INPUT_KEYBOARD;
    input.ki.wVk = key;
    input.ki.dwFlags = flags;
}

bool Send(std::vector<INPUT> inputs) {
    const auto count = static_cast<UINT>(inputs.size());
    return SendInput(count, inputs.data(), sizeof inputs[0]) == count;
}

}  // namespace

HWND ButtonOf(HWND box, const wchar_t* caption) {
    return FindWindowExW(box, nullptr, L"BUTTON", caption);
}

HWND LabelOf(HWND box) {
    return FindWindowExW(box, nullptr, L"K4TBackProcess.Label", nullptr);
}

BoxDriver::Step Keys(std::vector<WORD> keys) {
    return [keys = std::move(keys)](HWND box) {
        if (!HasKeyboard(box)) return false;
        std::vector<INPUT> inputs;
        for (const WORD key : keys) AddKey(inputs, key, 0);
        for (auto key = keys.rbegin(); key != keys.rend(); ++key) AddKey(inputs, *key, KEYEVENTF_KEYUP);
        return Send(std::move(inputs));
    };
}

BoxDriver::Step Repeated(WORD key) {
    return [key](HWND box) {
        constexpr LPARAM kOnce = 1;
        return HasKeyboard(box) && PostMessageW(GetFocus(), WM_KEYDOWN, key, KF_REPEAT << 16 | kOnce) != FALSE;
    };
}

BoxDriver::Step Character(wchar_t character) {
    return
        [character](HWND box) { return HasKeyboard(box) && PostMessageW(GetFocus(), WM_CHAR, character, 1) != FALSE; };
}

BoxDriver::Step ClickOn(const wchar_t* caption) {
    return [caption](HWND box) {
        RECT button{};
        if (!HasKeyboard(box) || !GetWindowRect(ButtonOf(box, caption), &button)) return false;
        SetCursorPos(static_cast<int>(button.left + 5), static_cast<int>(button.top + 5));
        std::vector<INPUT> inputs(2);
        for (INPUT& input : inputs) input.type = INPUT_MOUSE;
        inputs[0].mi.dwFlags = MOUSEEVENTF_LEFTDOWN;
        inputs[1].mi.dwFlags = MOUSEEVENTF_LEFTUP;
        return Send(std::move(inputs));
    };
}

BoxDriver::Step FocusIsOn(const wchar_t* caption) {
    return [caption](HWND box) { return HasKeyboard(box) && GetFocus() == ButtonOf(box, caption); };
}

BoxDriver::Step Do(std::function<void(HWND box)> action) {
    return [action = std::move(action)](HWND box) {
        action(box);
        return true;
    };
}

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
