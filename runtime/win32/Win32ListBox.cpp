#include "runtime/win32/Win32ListBox.h"

#include <commctrl.h>

namespace runtime::win32 {

Win32ListBox::Win32ListBox(Win32Window& parent, Win32Windows& system, const ControlLook& look, int id)
    : Win32List(parent, system, look.kind, id,
                {WC_LISTBOXW, LBS_NOTIFY | LBS_HASSTRINGS | WS_VSCROLL | WS_HSCROLL, WS_EX_CLIENTEDGE},
                {LB_ADDSTRING, LB_RESETCONTENT, LB_GETCOUNT, LB_GETTEXTLEN, LB_GETTEXT, LB_SETCURSEL, LB_GETCURSEL,
                 LB_SETHORIZONTALEXTENT}) {
    // Hide the horizontal scroll bar. The list shows it when an item is wider than the list. A permanent bar would use
    // the place of an item.
    ShowScrollBar(Window(), SB_HORZ, FALSE);
}

void Win32ListBox::SetBounds(const Rect& bounds) {
    bounds_ = bounds;
    Win32Control::SetBounds(bounds);
}

void Win32ListBox::Clear() {
    // Restore the height. The list box reduced its height to a whole number of items when the horizontal scroll bar
    // appeared.
    if (RemoveItems()) SetBounds(bounds_);
}

Notice Win32ListBox::NoticeOf(WORD code) {
    return code == LBN_SELCHANGE ? Notice::kChosen : Notice::kNone;
}

}  // namespace runtime::win32
