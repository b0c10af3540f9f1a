#include "tests/query/QueryTest.h"

#include <utility>

#include "tests/windows/WindowTexts.h"

namespace tests {
namespace {

bool IsInput(HWND window) {
    return IsClass(window, L"Edit") || IsClass(window, L"ComboBox") || IsClass(window, L"ListBox");
}

}  // namespace

HWND InputOf(HWND dialog) {
    HWND child = GetWindow(dialog, GW_CHILD);
    while (child && !(IsInput(child) && (GetWindowLongW(child, GWL_STYLE) & WS_VISIBLE))) {
        child = GetWindow(child, GW_HWNDNEXT);
    }
    return child;
}

DialogDriver::Step FocusIsOnInput() {
    return [](HWND dialog) {
        const HWND input = InputOf(dialog);
        const HWND focus = GetFocus();
        return GetActiveWindow() == dialog && focus && (focus == input || IsChild(input, focus));
    };
}

Answer QueryTest::Ask(Question question, Steps steps) {
    const DialogDriver driver(std::move(steps));
    return AskFor(question);
}

Answer QueryTest::AskQuickly(Question question) {
    PressSoon(L"Accept");
    return AskFor(question);
}

}  // namespace tests
