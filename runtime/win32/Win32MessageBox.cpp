#include "runtime/win32/Win32MessageBox.h"

#include "runtime/Error.h"
#include "runtime/win32/Callback.h"
#include "runtime/win32/DisabledWindows.h"
#include "runtime/win32/OutOfResources.h"
#include "runtime/win32/WindowsHeaders.h"

namespace runtime::win32 {
namespace {

/// Help of the box that this thread shows. The system hands its help callback nothing to know the box by; but of
/// boxes within boxes only the innermost can be answered, and this is its help.
class ShownHelp {
 public:
    ShownHelp(HelpControl& control, HWND owner, const MessageHelp& help)
        : control_(control), owner_(owner), help_(help), outer_(innermost_) {
        innermost_ = this;
    }
    ShownHelp(const ShownHelp&) = delete;
    ShownHelp& operator=(const ShownHelp&) = delete;
    ~ShownHelp() { innermost_ = outer_; }

    static void CALLBACK Open(HELPINFO*) noexcept {
        Callback::Guard(false, [] { return innermost_->OpenFile(); });
    }

 private:
    // The box's owner owns the help as well: owned by the box, the help would go with it.
    bool OpenFile() const { return !help_.file.empty() && control_.Open(owner_, help_.file, help_.context); }

    static thread_local const ShownHelp* innermost_;

    HelpControl& control_;
    HWND owner_;
    const MessageHelp& help_;
    const ShownHelp* outer_;
};

thread_local const ShownHelp* ShownHelp::innermost_ = nullptr;

bool HasKnownButtons(UINT style) {
    return (style & MB_TYPEMASK) <= MB_CANCELTRYCONTINUE;
}

/// The system closes its box for WM_QUIT and puts the message back for the outer loop. It is looked at and left there:
/// taking it here would end nothing but this box.
bool IsQuitting() {
    MSG message;
    return PeekMessageW(&message, nullptr, WM_QUIT, WM_QUIT, PM_NOREMOVE) != FALSE;
}

}  // namespace

std::int32_t Win32MessageBox::Show(StringView prompt, std::int32_t flags, StringView title, const MessageHelp& help) {
    const auto style = static_cast<UINT>(flags);
    // Systems differ in what they make of such a style.
    if (!HasKnownButtons(style)) throw ErrorAbout(kInvalidProcedureCall, u"no message box has such buttons");
    const String promptText = NulsAsBlanks(prompt);
    const String titleText = NulsAsBlanks(title);
    // The box of a service is shown on the desktop that is in use, and may have no owner.
    const bool isForService = (style & MB_SERVICE_NOTIFICATION) != 0;
    const HWND owner = isForService ? nullptr : GetActiveWindow();
    MSGBOXPARAMSW box{};
    box.cbSize = sizeof box;
    box.hwndOwner = owner;
    box.lpszText = Wide(promptText);
    box.lpszCaption = Wide(titleText);
    box.dwStyle = style;
    box.dwContextHelpId = static_cast<DWORD>(help.context);
    box.lpfnMsgBoxCallback = ShownHelp::Open;
    const ShownHelp shownHelp(helpControl_, owner, help);
    // They are enabled afterwards; not every system does that when the thread was asked to end.
    DisabledWindows inputWindows(nullptr);
    // A box without an owner keeps no window from its input by itself.
    if (!owner && !isForService) inputWindows.Disable();
    DWORD systemError = 0;
    const int answer = Callback::CallSystem([&] {
        const int given = MessageBoxIndirectW(&box);
        systemError = GetLastError();
        return given;
    });
    // The box closed because the thread was asked to end: the system's result is not an answer of the user.
    if (IsQuitting()) return IDCANCEL;
    // The box closes with its owner, which may be unloaded while the question is open.
    if (answer == 0 && owner && !IsWindow(owner)) return IDCANCEL;
    if (answer == 0) throw OutOfResources(u"no message box", systemError);
    return answer;
}

}  // namespace runtime::win32
