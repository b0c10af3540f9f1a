#include "runtime/win32/Win32MessageBox.h"

#include "runtime/Error.h"
#include "runtime/ScopeGuard.h"
#include "runtime/win32/Callback.h"
#include "runtime/win32/DisabledWindows.h"
#include "runtime/win32/OutOfResources.h"
#include "runtime/win32/WindowsHeaders.h"

namespace runtime::win32 {
namespace {

/// Stores the help of the message box that this thread shows. The help callback does not get the box as a parameter.
/// Boxes can be nested, but only the innermost box accepts input. Therefore the callback opens the help of the
/// innermost box.
struct ShownHelp {
    HelpControl& control;
    HWND owner;
    const MessageHelp& help;

    // The owner of the box also owns the help window. If the box owned it, the help would close with the box.
    bool Open() const { return !help.file.empty() && control.Open(owner, help.file, help.context); }
};

thread_local const ShownHelp* innermostHelp = nullptr;

void CALLBACK OpenInnermostHelp(HELPINFO*) noexcept {
    Callback::Guard(false, [] { return innermostHelp->Open(); });
}

bool HasKnownButtons(UINT style) {
    return (style & MB_TYPEMASK) <= MB_CANCELTRYCONTINUE;
}

/// True if WM_QUIT is in the queue. The system closes its box on WM_QUIT and posts the message again. The message stays
/// in the queue, because the outer loop must also end.
bool IsQuitting() {
    MSG message;
    return PeekMessageW(&message, nullptr, WM_QUIT, WM_QUIT, PM_NOREMOVE) != FALSE;
}

}  // namespace

std::int32_t Win32MessageBox::Show(StringView prompt, std::int32_t flags, StringView title, const MessageHelp& help) {
    const auto style = static_cast<UINT>(flags);
    // An unknown set of buttons has different effects on different versions of Windows.
    if (!HasKnownButtons(style))
        throw ErrorAbout(kInvalidProcedureCall, u"the flags select a set of buttons that does not exist");
    const String promptText = NulsAsBlanks(prompt);
    const String titleText = NulsAsBlanks(title);
    // A service's box is shown on the active desktop and must not have an owner.
    const bool isForService = (style & MB_SERVICE_NOTIFICATION) != 0;
    const HWND owner = isForService ? nullptr : GetActiveWindow();
    MSGBOXPARAMSW box{};
    box.cbSize = sizeof box;
    box.hwndOwner = owner;
    box.lpszText = Wide(promptText);
    box.lpszCaption = Wide(titleText);
    box.dwStyle = style;
    box.dwContextHelpId = static_cast<DWORD>(help.context);
    box.lpfnMsgBoxCallback = OpenInnermostHelp;
    const ShownHelp shownHelp{helpControl_, owner, help};
    const auto innermost = SetForScope(innermostHelp, &shownHelp);
    // The destructor of `inputWindows` enables the thread's windows, because some systems leave the windows disabled
    // after a request to quit.
    DisabledWindows inputWindows(nullptr);
    // The system disables no window for a box without an owner.
    if (!owner && !isForService) inputWindows.Disable();
    DWORD systemError = 0;
    const int answer = Callback::CallSystem([&] {
        const int given = MessageBoxIndirectW(&box);
        systemError = GetLastError();
        return given;
    });
    // The thread got a request to quit. Therefore the result is not the user's answer.
    if (IsQuitting()) return IDCANCEL;
    // The box closes with its owner. The owner may be destroyed while the box is open.
    if (answer == 0 && owner && !IsWindow(owner)) return IDCANCEL;
    if (answer == 0) throw OutOfResources(u"cannot show a message box", systemError);
    return answer;
}

}  // namespace runtime::win32
