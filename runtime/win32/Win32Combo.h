// A control whose list drops down: the editable combo, and the list that shows its selected item.
#pragma once

#include "runtime/win32/Win32Control.h"

namespace runtime::win32 {

class Win32Combo final : public Win32Control, private NativeEdit, private NativeList {
 public:
    Win32Combo(Win32Window& parent, Win32Windows& system, const ControlLook& look, int id);

    void SetBounds(const Rect& bounds) override;
    void SetText(const String& text) override;
    NativeEdit* Edit() override { return edit_ ? this : nullptr; }
    NativeList* List() override { return this; }
    Notice NoticeOf(WORD code) override;
    int ChosenItem() override;

 private:
    String Text() override { return TextOf(Window()); }
    TextRange Selection() override { return SelectionOf(edit_); }
    void SetSelection(TextRange range) override { SelectIn(edit_, range); }

    void Add(const String& item) override;
    void Clear() override;
    void Choose(int index) override;
    bool IsOpen() override;
    void Close(bool choose) override;
    Twips ClosedHeight() override;

    /// What the user did while the list was open. The window system may have completed the text on its own.
    Notice NoticeOfClosing();
    void PutBackOpening();
    bool HasChangedSinceOpening();
    /// It is an item of the list that the control shows, or nothing where it can show nothing else.
    bool ShowsItem();
    String TextOfItem(int item) const;

    HWND edit_ = nullptr;  ///< the window in which the user writes; null for a list without one
    String textAtOpening_;
    int itemAtOpening_ = -1;
    bool isSetting_ = false;
};

}  // namespace runtime::win32
