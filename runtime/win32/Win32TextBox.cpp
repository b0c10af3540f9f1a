#include "runtime/win32/Win32TextBox.h"

#include <commctrl.h>

#include "runtime/ScopeGuard.h"

namespace runtime::win32 {
namespace {

DWORD EditStyleOf(ControlKind kind) {
    if (kind == ControlKind::kTextBlock) return ES_MULTILINE | ES_AUTOVSCROLL | ES_WANTRETURN | WS_VSCROLL;
    return ES_AUTOHSCROLL;
}

}  // namespace

Win32TextBox::Win32TextBox(Win32Window& parent, Win32Windows& system, const ControlLook& look, int id)
    : Win32Control(parent, system, look.kind, id, {WC_EDITW, EditStyleOf(look.kind), WS_EX_CLIENTEDGE}) {
    // 0 removes the limit on the text's length.
    SendMessageW(Window(), EM_SETLIMITTEXT, 0, 0);
}

void Win32TextBox::SetText(const String& text) {
    const auto setting = SetForScope(isSetting_, true);
    Win32Control::SetText(text);
}

Notice Win32TextBox::NoticeOf(WORD code) {
    return code == EN_CHANGE && !isSetting_ ? Notice::kEdited : Notice::kNone;
}

}  // namespace runtime::win32
