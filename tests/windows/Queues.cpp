#include "tests/windows/Queues.h"

#include <utility>

namespace tests {
namespace {

INPUT KeyInput(WORD key, DWORD flags) {
    INPUT input{};
    input.type = INPUT_KEYBOARD;
    input.ki.wVk = key;
    input.ki.dwFlags = flags;
    return input;
}

INPUT ButtonInput(DWORD flags) {
    INPUT input{};
    input.type = INPUT_MOUSE;
    input.mi.dwFlags = flags;
    return input;
}

bool Send(std::vector<INPUT> inputs) {
    const auto count = static_cast<UINT>(inputs.size());
    return SendInput(count, inputs.data(), sizeof inputs[0]) == count;
}

}  // namespace

bool SendKeys(const std::vector<WORD>& keys) {
    std::vector<INPUT> inputs;
    for (const WORD key : keys) inputs.push_back(KeyInput(key, 0));
    for (auto key = keys.rbegin(); key != keys.rend(); ++key) inputs.push_back(KeyInput(*key, KEYEVENTF_KEYUP));
    return Send(std::move(inputs));
}

HeldKey::HeldKey(WORD key) : key_(key) {
    Send({KeyInput(key_, 0)});
}

HeldKey::~HeldKey() {
    Send({KeyInput(key_, KEYEVENTF_KEYUP)});
}

bool SendClick(POINT place) {
    SetCursorPos(static_cast<int>(place.x), static_cast<int>(place.y));
    return Send({ButtonInput(MOUSEEVENTF_LEFTDOWN), ButtonInput(MOUSEEVENTF_LEFTUP)});
}

std::optional<int> TakeQuit() {
    MSG message{};
    if (!PeekMessageW(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE)) return std::nullopt;
    return static_cast<int>(message.wParam);
}

}  // namespace tests
