// The window of a control as a back end gives it. The model (Control) holds every property's value; the window shows
// it, and is asked only for what the user did to it since.
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
    kTextBlock,     ///< a text box of many lines with a vertical scroll bar
    kCombo,         ///< a text box with a list that drops down
    kDropDownList,  ///< a list that drops down, and shows the selected item
    kListBox,
};

/// The user can write here.
constexpr bool HasEdit(ControlKind kind) {
    return kind == ControlKind::kTextBox || kind == ControlKind::kTextBlock || kind == ControlKind::kCombo;
}
constexpr bool DropsDown(ControlKind kind) {
    return kind == ControlKind::kCombo || kind == ControlKind::kDropDownList;
}
/// Has items, of which one at most is selected.
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

/// The part of a control in which the user writes.
class NativeEdit {
 public:
    virtual ~NativeEdit() = default;

    /// As the user left it.
    virtual String Text() = 0;
    virtual TextRange Selection() = 0;
    virtual void SetSelection(TextRange range) = 0;
};

/// The list of a control.
class NativeList {
 public:
    virtual ~NativeList() = default;

    /// Appends. Error 7 when the window system refuses.
    virtual void Add(const String& item) = 0;
    /// Takes the text of an editable combo away, too.
    virtual void Clear() = 0;
    /// Selects an item, from 0; -1 for none. An editable combo shows its text.
    virtual void Choose(int index) = 0;
    /// The list has dropped down.
    virtual bool IsOpen() { return false; }
    /// Takes a list that has dropped down away: the item that it shows as selected is chosen, or the item and the text
    /// are put back that were there before.
    virtual void Close(bool /*choose*/) {}
    /// Height of a control that drops down, its list apart; it follows the font alone.
    virtual Twips ClosedHeight() { return 0; }
};

/// What a control's window is made with.
struct ControlLook {
    ControlKind kind;
    String name;
    String picture = {};  ///< the name of an icon among the resources of the module that has the window
};

/// A control's window; made visible, and destroyed with its NativeWindow.
class NativeControl {
 public:
    virtual ~NativeControl() = default;

    /// Place in the form's client area.
    virtual void SetBounds(const Rect& bounds) = 0;
    virtual void SetText(const String& text) = 0;
    virtual void SetFont(const Font& font) = 0;
    virtual void SetVisible(bool visible) = 0;
    /// Gives the control the keyboard, if the form is active.
    virtual void SetFocus() = 0;
    /// The form is active and the control, or a part of it, has the keyboard.
    virtual bool HasKeyboard() const = 0;
    /// Repaints at once.
    virtual void Refresh() = 0;
    /// What a screen reader calls the control.
    virtual void SetAccessibleName(const String& name) = 0;
    /// There exactly for kinds with HasEdit.
    virtual NativeEdit* Edit() { return nullptr; }
    /// There exactly for kinds with HasList.
    virtual NativeList* List() { return nullptr; }
};

}  // namespace runtime
