#include "tests/query/QueryTest.h"

#include <string_view>
#include <utility>

namespace tests {
namespace {

constexpr wchar_t kOwnerClass[] = L"tests.QueryOwner";
constexpr UINT kPressAccept = WM_APP;

bool IsInput(HWND window) {
    wchar_t name[32]{};
    const std::wstring_view its(name, static_cast<std::size_t>(GetClassNameW(window, name, 32)));
    return its == L"Edit" || its == L"ComboBox" || its == L"ListBox";
}

}  // namespace

HWND InputOf(HWND dialog) {
    HWND child = GetWindow(dialog, GW_CHILD);
    while (child && !(IsInput(child) && (GetWindowLongW(child, GWL_STYLE) & WS_VISIBLE))) {
        child = GetWindow(child, GW_HWNDNEXT);
    }
    return child;
}

runtime::String ContentOf(HWND control) {
    runtime::String text(static_cast<std::size_t>(SendMessageW(control, WM_GETTEXTLENGTH, 0, 0)) + 1, u'\0');
    const LRESULT taken =
        SendMessageW(control, WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(runtime::win32::Wide(text.data())));
    text.resize(static_cast<std::size_t>(taken));
    return text;
}

BoxDriver::Step FocusIsOnInput() {
    return [](HWND dialog) {
        const HWND input = InputOf(dialog);
        const HWND focus = GetFocus();
        return GetActiveWindow() == dialog && focus && (focus == input || IsChild(input, focus));
    };
}

QueryTest::QueryTest() {
    WNDCLASSW windowClass{};
    windowClass.lpfnWndProc = OwnerProcedure;
    windowClass.hInstance = GetModuleHandleW(nullptr);
    windowClass.lpszClassName = kOwnerClass;
    RegisterClassW(&windowClass);
    owner_ = CreateWindowExW(0, kOwnerClass, L"owner", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 50, 50, 300, 200, nullptr,
                             nullptr, windowClass.hInstance, nullptr);
    SetForegroundWindow(owner_);
    SetActiveWindow(owner_);
}

QueryTest::~QueryTest() {
    dialogs::ReleaseQuery();
    DestroyWindow(owner_);
    UnregisterClassW(kOwnerClass, GetModuleHandleW(nullptr));
}

void QueryTest::SetUp() {
    ASSERT_EQ(GetActiveWindow(), owner_);
}

LRESULT CALLBACK QueryTest::OwnerProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) noexcept {
    if (message == kPressAccept) PostMessageW(ButtonOf(ShownBox(), L"Accept"), BM_CLICK, 0, 0);
    return DefWindowProcW(window, message, wParam, lParam);
}

Answer QueryTest::Ask(Question question, Steps steps) {
    const BoxDriver driver(std::move(steps));
    return AskFor(question);
}

Answer QueryTest::AskQuickly(Question question) {
    PostMessageW(owner_, kPressAccept, 0, 0);
    return AskFor(question);
}

void QueryTest::ExpectNothingIsLeft() const {
    EXPECT_TRUE(IsWindowEnabled(owner_));
    EXPECT_EQ(GetActiveWindow(), owner_);
    EXPECT_EQ(ShownBox(), nullptr);
    EXPECT_EQ(runtime::LoadedForms().Count(), 0u);
}

}  // namespace tests
