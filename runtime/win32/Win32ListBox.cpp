#include "runtime/win32/Win32ListBox.h"

#include <commctrl.h>

#include "runtime/Error.h"

namespace runtime::win32 {

Win32ListBox::Win32ListBox(Win32Window& parent, Win32Windows& system, const ControlLook& look, int id)
    : Win32Control(parent, system, look.kind, id,
                   {WC_LISTBOXW, LBS_NOTIFY | LBS_HASSTRINGS | WS_VSCROLL, WS_EX_CLIENTEDGE}) {}

void Win32ListBox::Add(const String& item) {
    const LRESULT place = SendMessageW(Window(), LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(Wide(NulsAsBlanks(item))));
    if (place < 0) throw ErrorAbout(kOutOfMemory, u"no room for an item of a list");
}

void Win32ListBox::Clear() {
    SendMessageW(Window(), LB_RESETCONTENT, 0, 0);
}

void Win32ListBox::Choose(int index) {
    SendMessageW(Window(), LB_SETCURSEL, static_cast<WPARAM>(index), 0);
}

int Win32ListBox::ChosenItem() {
    return static_cast<int>(SendMessageW(Window(), LB_GETCURSEL, 0, 0));
}

Notice Win32ListBox::NoticeOf(WORD code) {
    return code == LBN_SELCHANGE ? Notice::kChosen : Notice::kNone;
}

}  // namespace runtime::win32
