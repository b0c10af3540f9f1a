#include "runtime/win32/Win32MessageBox.h"

#include "runtime/Error.h"
#include "runtime/win32/Callback.h"
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

/// Leaves the owner enabled as it was; not every system does that when the thread is told to end.
class OwnerState {
 public:
    explicit OwnerState(HWND owner) : owner_(owner && IsWindowEnabled(owner) ? owner : nullptr) {}
    OwnerState(const OwnerState&) = delete;
    OwnerState& operator=(const OwnerState&) = delete;
    ~OwnerState() {
        if (owner_ && IsWindow(owner_)) EnableWindow(owner_, TRUE);
    }

 private:
    HWND owner_;
};

bool IsQuitting() {
    MSG message;
    return PeekMessageW(&message, nullptr, WM_QUIT, WM_QUIT, PM_NOREMOVE) != FALSE;
}

}  // namespace

std::int32_t Win32MessageBox::Show(StringView prompt, std::int32_t flags, StringView title, const MessageHelp& help) {
    const auto style = static_cast<UINT>(flags);
    // Systems differ in what they make of such a style.
    if (!HasKnownButtons(style)) throw Error(kInvalidProcedureCall);
    const String promptText(prompt);
    const String titleText(title);
    // A box on behalf of a service stands on whatever desktop is in use, and may have no owner.
    const HWND owner = style & MB_SERVICE_NOTIFICATION ? nullptr : GetActiveWindow();
    MSGBOXPARAMSW box{};
    box.cbSize = sizeof box;
    box.hwndOwner = owner;
    box.lpszText = Wide(promptText);
    box.lpszCaption = Wide(titleText);
    box.dwStyle = style;
    box.dwContextHelpId = static_cast<DWORD>(help.context);
    box.lpfnMsgBoxCallback = ShownHelp::Open;
    const ShownHelp shownHelp(helpControl_, owner, help);
    const OwnerState ownerState(owner);
    const int answer = Callback::Into([&] { return MessageBoxIndirectW(&box); });
    // The box went because the thread is to end: nobody has answered it, whatever the system says.
    if (IsQuitting()) return IDCANCEL;
    if (answer == 0) throw Error(kOutOfMemory);
    return answer;
}

}  // namespace runtime::win32
