#include "runtime/win32/Win32Windows.h"

#include <cstring>
#include <iterator>
#include <optional>
#include <vector>

#include "runtime/ScopeGuard.h"
#include "runtime/Screen.h"
#include "runtime/win32/Callback.h"
#include "runtime/win32/GdiMeasure.h"
#include "runtime/win32/Handle.h"
#include "runtime/win32/OutOfResources.h"
#include "runtime/win32/Pixels.h"
#include "runtime/win32/Win32Label.h"
#include "runtime/win32/Win32Locale.h"
#include "runtime/win32/Win32Modal.h"
#include "runtime/win32/Win32Window.h"

namespace runtime::win32 {
namespace {

/// Returns the system's cursor for the classic runtime's pointer number `shape` in 0..15, and the arrow for other
/// numbers. The cursors exist until the process ends. Therefore each cursor is loaded only once.
HCURSOR SystemPointer(std::int16_t shape) {
    static const LPCWSTR kShapes[] = {IDC_ARROW,    IDC_ARROW,       IDC_CROSS,    IDC_IBEAM,  IDC_ICON,    IDC_SIZEALL,
                                      IDC_SIZENESW, IDC_SIZENS,      IDC_SIZENWSE, IDC_SIZEWE, IDC_UPARROW, IDC_WAIT,
                                      IDC_NO,       IDC_APPSTARTING, IDC_HELP,     IDC_SIZEALL};
    const bool known = shape >= 0 && static_cast<std::size_t>(shape) < std::size(kShapes);
    const std::size_t index = known ? static_cast<std::size_t>(shape) : 0;
    static HCURSOR cursors[std::size(kShapes)];
    if (!cursors[index]) cursors[index] = LoadCursorW(nullptr, kShapes[index]);
    return cursors[index];
}

bool IsHeld(int key) {
    return GetAsyncKeyState(key) < 0;
}

/// The key that types a character.
struct Keystroke {
    WORD key = 0;
    bool pressesShift = false;  ///< the character needs Shift, and the user does not hold it
};

/// Returns the key that types `character`. Returns no value in three cases: the character is not ASCII, no key types it
/// alone or with Shift, or a held key or Caps Lock might change it.
std::optional<Keystroke> KeystrokeFor(char16_t character) {
    constexpr char16_t kLastAscii = 0x7F;
    constexpr SHORT kNoKey = -1;
    constexpr int kWithShift = 1;
    // For a character outside the code page, the system may return the key of the question mark.
    if (character > kLastAscii) return std::nullopt;
    const SHORT found = VkKeyScanW(static_cast<wchar_t>(character));
    if (found == kNoKey || (HIBYTE(found) & ~kWithShift) != 0) return std::nullopt;
    const bool needsShift = HIBYTE(found) == kWithShift;
    const bool holdsShift = IsHeld(VK_SHIFT);
    // On some keyboard layouts, Caps Lock changes more keys than the letters.
    const bool isCapsLockOn = (GetKeyState(VK_CAPITAL) & 1) != 0;
    if ((holdsShift && !needsShift) || IsHeld(VK_CONTROL) || isCapsLockOn) return std::nullopt;
    return Keystroke{static_cast<WORD>(LOBYTE(found)), needsShift && !holdsShift};
}

INPUT KeyInput(WORD key, bool isDown) {
    INPUT input{};
    input.type = INPUT_KEYBOARD;
    input.ki.wVk = key;
    input.ki.dwFlags = isDown ? 0 : KEYEVENTF_KEYUP;
    return input;
}

void SendWithAlt(const Keystroke& stroke) {
    std::vector<INPUT> inputs = {KeyInput(VK_MENU, true)};
    if (stroke.pressesShift) inputs.push_back(KeyInput(VK_SHIFT, true));
    inputs.push_back(KeyInput(stroke.key, true));
    inputs.push_back(KeyInput(stroke.key, false));
    if (stroke.pressesShift) inputs.push_back(KeyInput(VK_SHIFT, false));
    inputs.push_back(KeyInput(VK_MENU, false));
    SendInput(static_cast<UINT>(inputs.size()), inputs.data(), sizeof inputs.front());
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
    if (!RegisterClassExW(&windowClass)) throw OutOfResources(u"cannot register the window class of forms");
    if (!Win32Label::RegisterWindowClass(instance_)) {
        const Error failure = OutOfResources(u"cannot register the window class of labels");
        UnregisterClassW(ClassName(), instance_);
        throw failure;
    }
    classesRegistered_ = true;
}

std::unique_ptr<NativeWindow> Win32Windows::MakeWindow(const WindowDesign& design, WindowEvents& events) {
    RegisterWindowClasses();
    return Callback::CallSystem([&] { return std::make_unique<Win32Window>(*this, design, events); });
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
    const HCURSOR before = SetCursor(SystemPointer(shape));
    if (wasDefault) pointerBefore_ = before;
}

bool Win32Windows::ShowPointer() const {
    if (pointer_ == kDefaultPointer) return false;
    SetCursor(SystemPointer(pointer_));
    return true;
}

std::uint32_t Win32Windows::RegisterMessage(StringView name) {
    return RegisterWindowMessageA(Win32Locale().ToAnsi(name).c_str());
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
    if (isKey && Callback::CallSystem([&] { return Win32Window::TakesKey(message); })) return;
    const auto dispatching = SetForScope(dispatchingThread_, isKey ? GetCurrentThreadId() : DWORD{0});
    Callback::CallSystem([&] {
        TranslateMessage(&message);
        DispatchMessageW(&message);
    });
}

bool Win32Windows::CopyToClipboard(StringView text) {
    const String shown = NulsAsBlanks(text);
    const std::size_t bytes = (shown.size() + 1) * sizeof(char16_t);
    GlobalMemory memory(GlobalAlloc(GMEM_MOVEABLE, bytes));
    void* const place = memory ? GlobalLock(memory.Get()) : nullptr;
    if (!place) return false;
    std::memcpy(place, shown.c_str(), bytes);
    GlobalUnlock(memory.Get());
    // Without an owner window, EmptyClipboard would empty the clipboard, and then SetClipboardData would fail.
    const HWND owner = GetActiveWindow();
    if (!owner || !OpenClipboard(owner)) return false;
    EmptyClipboard();
    // On success, the clipboard owns the memory.
    const bool isTaken = SetClipboardData(CF_UNICODETEXT, memory.Get()) != nullptr;
    if (isTaken) memory.Release();
    CloseClipboard();
    return isTaken;
}

std::unique_ptr<ModalLoop> Win32Windows::BeginModal(NativeWindow& window) {
    return std::make_unique<Win32Modal>(*this, reinterpret_cast<HWND>(window.Handle()));
}

Size Win32Windows::TextSize(StringView text, const Font& font, Twips wrapWidth) {
    GdiMeasure measure(fonts_.Get(font));
    const TextLayout layout = LayOut(text, wrapWidth == kEndlessWidth ? kNoWrap : ToPixels(wrapWidth), measure);
    return {ToTwips(layout.width), ToTwips(layout.height)};
}

void Win32Windows::PressWithAlt(char16_t character) {
    const HWND active = GetActiveWindow();
    if (!active) return;
    const std::optional<Keystroke> stroke = KeystrokeFor(character);
    // Another program in the foreground would get the keys.
    if (stroke && active == GetForegroundWindow()) return SendWithAlt(*stroke);
    // Post the character that the keys would produce.
    constexpr LPARAM kAltIsDown = 1 << 29;
    PostMessageW(active, WM_SYSCHAR, character, kAltIsDown | 1);
}

}  // namespace runtime::win32
