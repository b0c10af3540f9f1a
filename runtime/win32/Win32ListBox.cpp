#include "runtime/win32/Win32ListBox.h"

#include <commctrl.h>

#include "runtime/Error.h"

namespace runtime::win32 {

Win32ListBox::Win32ListBox(Win32Window& parent, Win32Windows& system, const ControlLook& look, int id)
    : Win32Control(parent, system, look.kind, id,
                   {WC_LISTBOXW, LBS_NOTIFY | LBS_HASSTRINGS | WS_VSCROLL | WS_HSCROLL, WS_EX_CLIENTEDGE}),
      extent_(Window(), LB_SETHORIZONTALEXTENT) {
    // The list shows the scroll bar when an item needs the bar. A permanent bar would use the place of an item.
    ShowScrollBar(Window(), SB_HORZ, FALSE);
}

void Win32ListBox::SetBounds(const Rect& bounds) {
    bounds_ = bounds;
    Win32Control::SetBounds(bounds);
}

void Win32ListBox::SetFont(const Font& font) {
    Win32Control::SetFont(font);
    extent_.Reset();
    const auto items = static_cast<int>(SendMessageW(Window(), LB_GETCOUNT, 0, 0));
    for (int item = 0; item < items; ++item) extent_.Take(TextOfItem(item));
}

void Win32ListBox::Add(const String& item) {
    const LRESULT place = SendMessageW(Window(), LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(Wide(NulsAsBlanks(item))));
    if (place < 0) throw ErrorAbout(kOutOfMemory, u"cannot add an item to a list");
    extent_.Take(item);
}

String Win32ListBox::TextOfItem(int item) const {
    const LRESULT length = SendMessageW(Window(), LB_GETTEXTLEN, static_cast<WPARAM>(item), 0);
    if (length < 0) return {};
    String text(static_cast<std::size_t>(length), u'\0');
    SendMessageW(Window(), LB_GETTEXT, static_cast<WPARAM>(item), reinterpret_cast<LPARAM>(Wide(text.data())));
    return text;
}

void Win32ListBox::SetRedraw(bool redraws) {
    SendMessageW(Window(), WM_SETREDRAW, redraws ? TRUE : FALSE, 0);
}

void Win32ListBox::Clear() {
    SendMessageW(Window(), LB_RESETCONTENT, 0, 0);
    // When the scroll bar appeared, the list box reduced its height to a whole number of items.
    if (extent_.Reset()) SetBounds(bounds_);
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
