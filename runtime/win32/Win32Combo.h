// Implements an editable combo, and a drop-down list that shows the selected item.
#pragma once

#include "runtime/win32/Win32List.h"

namespace runtime::win32 {

class Win32Combo final : public Win32List, private NativeEdit {
 public:
    Win32Combo(Win32Window& parent, Win32Windows& system, const ControlLook& look, int id);

    void SetBounds(const Rect& bounds) override;
    void SetText(const String& text) override;
    NativeEdit* Edit() override { return edit_ ? this : nullptr; }
    Notice NoticeOf(WORD code) override;

 private:
    String Text() override { return TextOf(Window()); }
    TextRange Selection() override { return SelectionOf(edit_); }
    void SetSelection(TextRange range) override { SelectIn(edit_, range); }
    void Write(const String& text) override { WriteInto(edit_, text); }

    void Clear() override;
    void Choose(int index) override;
    bool IsOpen() override;
    void Close(bool choose) override;
    Twips ClosedHeight() override;

    /// Returns how the item or the text changed while the list was open. The change may come from Windows, which
    /// completes a typed text to an item.
    Notice NoticeOfClosing();
    void PutBackOpening();
    bool HasChangedSinceOpening();
    /// True if the control shows the text of the selected item. Always true if the control has no edit window.
    bool ShowsItem();

    HWND edit_ = nullptr;  ///< the edit window of an editable combo, otherwise null
    String textAtOpening_;
    int itemAtOpening_ = -1;
    bool isSetting_ = false;
};

}  // namespace runtime::win32
