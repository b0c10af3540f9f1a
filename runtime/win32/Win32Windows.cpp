#include "runtime/win32/Win32Windows.h"

#include <iterator>
#include <utility>

#include "runtime/Screen.h"
#include "runtime/win32/Callback.h"
#include "runtime/win32/GdiMeasure.h"
#include "runtime/win32/Pixels.h"
#include "runtime/win32/SystemFailure.h"
#include "runtime/win32/Win32Label.h"
#include "runtime/win32/Win32Modal.h"
#include "runtime/win32/Win32Window.h"

namespace runtime::win32 {
namespace {

constexpr char16_t kDelete = 0x7F;  // the last one of ASCII
constexpr SHORT kNoKey = -1;
constexpr int kShiftIsDown = 1;

/// The system's shapes for the classic runtime's pointer numbers 0..15.
LPCWSTR SystemPointer(std::int16_t shape) {
    const LPCWSTR kShapes[] = {IDC_ARROW,    IDC_ARROW,       IDC_CROSS,    IDC_IBEAM,  IDC_ICON,    IDC_SIZEALL,
                               IDC_SIZENESW, IDC_SIZENS,      IDC_SIZENWSE, IDC_SIZEWE, IDC_UPARROW, IDC_WAIT,
                               IDC_NO,       IDC_APPSTARTING, IDC_HELP,     IDC_SIZEALL};
    const bool known = shape >= 0 && static_cast<std::size_t>(shape) < std::size(kShapes);
    return known ? kShapes[shape] : IDC_ARROW;
}

}  // namespace

Win32Windows::~Win32Windows() {
    if (!classesRegistered_) return;
    UnregisterClassW(ClassName(), instance_);
    Win32Label::UnregisterWindowClass(instance_);
}

const wchar_t* Win32Windows::ClassName() const {
    return L"K4TBackProcess.Form";
}

void Win32Windows::RegisterWindowClasses() {
    if (classesRegistered_) return;
    WNDCLASSEXW windowClass{};
    windowClass.cbSize = sizeof windowClass;
    windowClass.style = CS_OWNDC | CS_DBLCLKS;
    windowClass.lpfnWndProc = Win32Window::Procedure;
    windowClass.hInstance = instance_;
    windowClass.hCursor = LoadCursorW(nullptr, IDC_ARROW);
    windowClass.lpszClassName = ClassName();
    if (!RegisterClassExW(&windowClass)) throw SystemFailure(u"no window class for forms");
    if (!Win32Label::RegisterWindowClass(instance_)) {
        const Error failure = SystemFailure(u"no window class for labels");
        UnregisterClassW(ClassName(), instance_);
        throw failure;
    }
    classesRegistered_ = true;
}

std::unique_ptr<NativeWindow> Win32Windows::MakeWindow(const WindowDesign& design, WindowEvents& events) {
    RegisterWindowClasses();
    return Callback::Into([&] { return std::make_unique<Win32Window>(*this, design, events); });
}

Size Win32Windows::OuterSize(Size inner, BorderStyle border) {
    RECT outer = ToPixels(Rect{0, 0, inner.width, inner.height});
    AdjustWindowRectEx(&outer, Win32Window::StyleOf(border), FALSE, Win32Window::ExtendedStyleOf(border));
    return ToTwips(outer).Size();
}

Size Win32Windows::ScreenSize() {
    return {ToTwips(GetSystemMetrics(SM_CXSCREEN)), ToTwips(GetSystemMetrics(SM_CYSCREEN))};
}

void Win32Windows::SetMousePointer(std::int16_t shape) {
    const bool wasDefault = pointer_ == kDefaultPointer;
    pointer_ = shape;
    if (shape == kDefaultPointer) {
        if (!wasDefault) SetCursor(pointerBefore_);
        return;
    }
    const HCURSOR before = SetCursor(LoadCursorW(nullptr, SystemPointer(shape)));
    if (wasDefault) pointerBefore_ = before;
}

bool Win32Windows::ShowPointer() const {
    if (pointer_ == kDefaultPointer) return false;
    SetCursor(LoadCursorW(nullptr, SystemPointer(pointer_)));
    return true;
}

std::uint32_t Win32Windows::RegisterMessage(StringView name) {
    return RegisterWindowMessageW(Wide(String(name)));
}

void Win32Windows::DoEvents() {
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
        if (message.message == WM_QUIT) {
            PostQuitMessage(static_cast<int>(message.wParam));
            return;
        }
        Dispatch(message);
    }
}

void Win32Windows::Dispatch(const MSG& message) {
    const bool isKey = message.message >= WM_KEYFIRST && message.message <= WM_KEYLAST;
    if (isKey && Callback::Into([&] { return Win32Window::TakesKey(message); })) return;
    const DWORD outer = std::exchange(dispatchingThread_, isKey ? GetCurrentThreadId() : 0);
    const struct Restore {
        DWORD& thread;
        DWORD value;
        ~Restore() { thread = value; }
    } restore{dispatchingThread_, outer};
    Callback::Into([&] {
        TranslateMessage(&message);
        DispatchMessageW(&message);
    });
}

std::unique_ptr<ModalLoop> Win32Windows::BeginModal(NativeWindow& window) {
    return std::make_unique<Win32Modal>(*this, reinterpret_cast<HWND>(window.Handle()));
}

Size Win32Windows::TextSize(StringView text, const Font& font, Twips wrapWidth) {
    GdiMeasure measure(fonts_.Get(font));
    const TextLayout layout = LayOut(text, wrapWidth == kEndlessWidth ? kNoWrap : ToPixels(wrapWidth), measure);
    return {ToTwips(layout.width), ToTwips(layout.height)};
}

void Win32Windows::SendAltKey(char16_t character) {
    // Alt with a blank would open the system menu, Alt with a control character switch to another program.
    if (character <= u' ' || character == kDelete) return;
    // For a character outside the locale's set the system may name the key of a question mark.
    const SHORT key = character < kDelete ? VkKeyScanW(static_cast<wchar_t>(character)) : kNoKey;
    const bool isPlainKey = key != kNoKey && (HIBYTE(key) & ~kShiftIsDown) == 0;
    if (!isPlainKey || GetForegroundWindow() != GetActiveWindow()) {
        // Not a key of its own, or one that another program would get: what the keys would have become is sent.
        constexpr LPARAM kAltIsDown = 1 << 29;
        if (const HWND active = GetActiveWindow()) PostMessageW(active, WM_SYSCHAR, character, kAltIsDown | 1);
        return;
    }
    INPUT inputs[4]{};
    const auto press = [](INPUT& input, WORD virtualKey, DWORD flags) {
        input.type = INPUT_KEYBOARD;
        input.ki.wVk = virtualKey;
        input.ki.dwFlags = flags;
    };
    const auto characterKey = static_cast<WORD>(LOBYTE(key));
    press(inputs[0], VK_MENU, 0);
    press(inputs[1], characterKey, 0);
    press(inputs[2], characterKey, KEYEVENTF_KEYUP);
    press(inputs[3], VK_MENU, KEYEVENTF_KEYUP);
    SendInput(static_cast<UINT>(std::size(inputs)), inputs, sizeof inputs[0]);
}

}  // namespace runtime::win32
