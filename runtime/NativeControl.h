// The interface of a control's window. Each back end implements the interface. The model (Control) stores the
// properties and passes to the window what the window needs. It reads from the window only the edited text, the
// selection, the focus, the open list and the closed height.
#pragma once

#include <cstddef>

#include "runtime/Font.h"
#include "runtime/Geometry.h"
#include "runtime/Text.h"

namespace runtime {

enum class ControlKind {
    kStatusBar,
    kLabel,
    kButton,
    kPicture,
    kTextBox,
    kTextBlock,     ///< a multi-line text box with a vertical scroll bar
    kCombo,         ///< an editable combo: a text box with a drop-down list
    kDropDownList,  ///< a drop-down list that shows the selected item and cannot be edited
    kListBox,
};

/// True if the user can edit the text.
constexpr bool HasEdit(ControlKind kind) {
    return kind == ControlKind::kTextBox || kind == ControlKind::kTextBlock || kind == ControlKind::kCombo;
}
constexpr bool DropsDown(ControlKind kind) {
    return kind == ControlKind::kCombo || kind == ControlKind::kDropDownList;
}
/// True if the control has items. At most one item is selected.
constexpr bool HasList(ControlKind kind) {
    return DropsDown(kind) || kind == ControlKind::kListBox;
}
constexpr bool IsInput(ControlKind kind) {
    return HasEdit(kind) || HasList(kind);
}

/// Part of a text, in UTF-16 units.
struct TextRange {
    std::size_t start = 0;
    std::size_t length = 0;
    bool operator==(const TextRange&) const = default;
};

/// The edit part of a control.
class NativeEdit {
 public:
    virtual ~NativeEdit() = default;

    /// Returns the current text, with the user's changes.
    virtual String Text() = 0;
    virtual TextRange Selection() = 0;
    virtual void SetSelection(TextRange range) = 0;
    /// Replaces the selected part, as if the user had typed `text`. The change is reported, and the user can undo it.
    virtual void Write(const String& text) = 0;
};

/// The list part of a control.
class NativeList {
 public:
    virtual ~NativeList() = default;

    /// Appends `item`. Error 7 if the window system cannot add it.
    virtual void Add(const String& item) = 0;
    /// If `redraws` is false, the list does not draw new items and does not adjust its scroll bars, until `redraws` is
    /// true again.
    virtual void SetRedraw(bool /*redraws*/) {}
    /// Also clears the text of an editable combo.
    virtual void Clear() = 0;
    /// Selects the item at `index`, counted from 0; -1 selects no item. An editable combo shows the item's text.
    virtual void Choose(int index) = 0;
    /// True while the drop-down list is open.
    virtual bool IsOpen() { return false; }
    /// Closes an open drop-down list. If `choose` is true, selects the highlighted item. Otherwise restores the item
    /// and the text from before the list was opened.
    virtual void Close(bool /*choose*/) {}
    /// Returns the height of the closed control in twips; 0 without a drop-down list. It depends only on the font.
    virtual Twips ClosedHeight() { return 0; }
};

/// The values that a control's window is created with.
struct ControlLook {
    ControlKind kind;
    String name;
    String picture = {};  ///< name of an icon resource in the DLL or program that creates the windows
};

/// A control's window. It is visible after its creation. The NativeWindow of the form owns it.
class NativeControl {
 public:
    virtual ~NativeControl() = default;

    /// Sets position and size in twips within the form's client area.
    virtual void SetBounds(const Rect& bounds) = 0;
    virtual void SetText(const String& text) = 0;
    virtual void SetFont(const Font& font) = 0;
    virtual void SetVisible(bool visible) = 0;
    /// Gives the control the keyboard focus if the form is active.
    virtual void SetFocus() = 0;
    /// True if the form is active and the control, or a part of it, has the keyboard focus.
    virtual bool HasFocus() const = 0;
    /// Repaints the window at once.
    virtual void Refresh() = 0;
    /// Sets the name that a screen reader announces.
    virtual void SetAccessibleName(const String& name) = 0;
    /// Returns the edit part; null for the kinds without HasEdit.
    virtual NativeEdit* Edit() { return nullptr; }
    /// Returns the list part; null for the kinds without HasList.
    virtual NativeList* List() { return nullptr; }
};

}  // namespace runtime
