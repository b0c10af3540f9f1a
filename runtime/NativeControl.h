// The window of a control, which each back end implements. The model (Control) stores every property's value and sets
// it on the window. It reads back only what the user has changed.
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

/// The user can edit the text.
constexpr bool HasEdit(ControlKind kind) {
    return kind == ControlKind::kTextBox || kind == ControlKind::kTextBlock || kind == ControlKind::kCombo;
}
constexpr bool DropsDown(ControlKind kind) {
    return kind == ControlKind::kCombo || kind == ControlKind::kDropDownList;
}
/// Has items. At most one item is selected.
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

    /// The current text, with the user's changes.
    virtual String Text() = 0;
    virtual TextRange Selection() = 0;
    virtual void SetSelection(TextRange range) = 0;
    /// Replaces the selected part, as the user's typing does: it is reported, and the user can undo it.
    virtual void Write(const String& text) = 0;
};

/// The list part of a control.
class NativeList {
 public:
    virtual ~NativeList() = default;

    /// Appends `item`. Error 7 if the window system cannot add it.
    virtual void Add(const String& item) = 0;
    /// Also clears the text of an editable combo.
    virtual void Clear() = 0;
    /// Selects the item at `index`, counted from 0; -1 for none. An editable combo shows the item's text.
    virtual void Choose(int index) = 0;
    /// True while the drop-down list is open.
    virtual bool IsOpen() { return false; }
    /// Closes an open drop-down list. If `choose` is true, the highlighted item becomes the selected one. Otherwise the
    /// item and the text from before the list was opened are restored.
    virtual void Close(bool /*choose*/) {}
    /// The height in twips of a control with a drop-down list while the list is closed. It depends only on the font.
    virtual Twips ClosedHeight() { return 0; }
};

/// The values that a control's window is created with.
struct ControlLook {
    ControlKind kind;
    String name;
    String picture = {};  ///< name of an icon resource in the module that creates the windows
};

/// A control's window. It is created visible. Its NativeWindow owns it.
class NativeControl {
 public:
    virtual ~NativeControl() = default;

    /// In twips within the form's client area.
    virtual void SetBounds(const Rect& bounds) = 0;
    virtual void SetText(const String& text) = 0;
    virtual void SetFont(const Font& font) = 0;
    virtual void SetVisible(bool visible) = 0;
    /// Gives the control the keyboard focus if the form is active.
    virtual void SetFocus() = 0;
    /// True if the form is active and the control, or a part of it, has the keyboard focus.
    virtual bool HasKeyboard() const = 0;
    /// Repaints at once.
    virtual void Refresh() = 0;
    /// Sets the name that a screen reader announces.
    virtual void SetAccessibleName(const String& name) = 0;
    /// Null exactly for the kinds without HasEdit.
    virtual NativeEdit* Edit() { return nullptr; }
    /// Null exactly for the kinds without HasList.
    virtual NativeList* List() { return nullptr; }
};

}  // namespace runtime
