#include "runtime/win32/Win32Combo.h"

#include <commctrl.h>

#include "runtime/ScopeGuard.h"
#include "runtime/win32/Callback.h"
#include "runtime/win32/OutOfResources.h"
#include "runtime/win32/Pixels.h"

namespace runtime::win32 {
namespace {

constexpr int kItemsInList = 8;

DWORD ComboStyleOf(ControlKind kind) {
    const DWORD both = CBS_HASSTRINGS | WS_VSCROLL | WS_HSCROLL;
    return kind == ControlKind::kCombo ? both | CBS_DROPDOWN | CBS_AUTOHSCROLL : both | CBS_DROPDOWNLIST;
}

}  // namespace

Win32Combo::Win32Combo(Win32Window& parent, Win32Windows& system, const ControlLook& look, int id)
    : Win32List(parent, system, look.kind, id, {WC_COMBOBOXW, ComboStyleOf(look.kind), 0},
                {CB_ADDSTRING, CB_RESETCONTENT, CB_GETCOUNT, CB_GETLBTEXTLEN, CB_GETLBTEXT, CB_SETCURSEL, CB_GETCURSEL,
                 CB_SETHORIZONTALEXTENT}) {
    if (look.kind != ControlKind::kCombo) return;
    COMBOBOXINFO parts{};
    parts.cbSize = sizeof parts;
    GetComboBoxInfo(Window(), &parts);
    edit_ = parts.hwndItem;
    if (!edit_) throw OutOfResources(u"cannot create the text box of a combo box");
    // 0 removes the limit on the text's length.
    SendMessageW(edit_, EM_SETLIMITTEXT, 0, 0);
}

void Win32Combo::SetBounds(const Rect& bounds) {
    const RECT closed = ToPixels(bounds);
    const auto itemHeight = static_cast<int>(SendMessageW(Window(), CB_GETITEMHEIGHT, 0, 0));
    // Windows expects the height with an open list. Windows itself sets the height of the closed control.
    const int open = ToPixels(ClosedHeight()) + kItemsInList * itemHeight + 2 * GetSystemMetrics(SM_CYBORDER);
    Callback::CallSystem([&] {
        SetWindowPos(Window(), nullptr, static_cast<int>(closed.left), static_cast<int>(closed.top),
                     static_cast<int>(closed.right - closed.left), open, SWP_NOZORDER | SWP_NOACTIVATE);
    });
}

void Win32Combo::SetText(const String& text) {
    if (!edit_) return;
    const auto setting = SetForScope(isSetting_, true);
    SendMessageW(Window(), CB_SETCURSEL, static_cast<WPARAM>(-1), 0);
    Win32Control::SetText(text);
    SetSelection({});
}

void Win32Combo::Clear() {
    const auto setting = SetForScope(isSetting_, true);
    Win32List::Clear();
    if (edit_) SetWindowTextW(edit_, L"");
}

void Win32Combo::Choose(int index) {
    const auto setting = SetForScope(isSetting_, true);
    Win32List::Choose(index);
}

bool Win32Combo::IsOpen() {
    return SendMessageW(Window(), CB_GETDROPPEDSTATE, 0, 0) != FALSE;
}

void Win32Combo::Close(bool choose) {
    const auto press = [this](WPARAM key) {
        Callback::CallSystem([&] { SendMessageW(Window(), WM_KEYDOWN, key, 1); });
    };
    // Only these keys make the window select or cancel.
    if (choose) {
        press(VK_RETURN);
        return;
    }
    {
        const auto setting = SetForScope(isSetting_, true);
        press(VK_ESCAPE);
        if (!HasChangedSinceOpening()) return;
        PutBackOpening();
    }
    // The arrow keys have already reported other items. Report the restored item or text.
    const WORD code = ShowsItem() ? CBN_SELCHANGE : CBN_EDITCHANGE;
    const auto id = static_cast<WORD>(GetDlgCtrlID(Window()));
    SendMessageW(GetParent(Window()), WM_COMMAND, MAKEWPARAM(id, code), reinterpret_cast<LPARAM>(Window()));
}

void Win32Combo::PutBackOpening() {
    SendMessageW(Window(), CB_SETCURSEL, static_cast<WPARAM>(itemAtOpening_), 0);
    if (!edit_ || Text() == textAtOpening_) return;
    SetWindowTextW(edit_, Wide(textAtOpening_));
    SetSelection({0, textAtOpening_.size()});
}

bool Win32Combo::HasChangedSinceOpening() {
    return ChosenItem() != itemAtOpening_ || Text() != textAtOpening_;
}

bool Win32Combo::ShowsItem() {
    const int item = ChosenItem();
    return !edit_ || (item >= 0 && Text() == TextOfItem(item));
}

Twips Win32Combo::ClosedHeight() {
    RECT outer{};
    GetWindowRect(Window(), &outer);
    return ToTwips(outer).height;
}

Notice Win32Combo::NoticeOf(WORD code) {
    if (isSetting_) return Notice::kNone;
    switch (code) {
        case CBN_SELCHANGE:
            return Notice::kChosen;
        case CBN_EDITCHANGE:
            return Notice::kEdited;
        case CBN_DROPDOWN:
            textAtOpening_ = Text();
            itemAtOpening_ = ChosenItem();
            return Notice::kNone;
        case CBN_CLOSEUP:
            return NoticeOfClosing();
        default:
            return Notice::kNone;
    }
}

Notice Win32Combo::NoticeOfClosing() {
    if (!HasChangedSinceOpening()) return Notice::kNone;
    return ShowsItem() ? Notice::kChosen : Notice::kEdited;
}

}  // namespace runtime::win32
