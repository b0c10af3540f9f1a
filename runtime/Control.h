// A control is a part of a form. The form owns its controls. Use them only on the form's thread. HasOpenList, CloseList
// and the functions declared before Bounds do not load the form. All other functions load it if it is not loaded. Each
// load resets the properties to the design values.
//
// An input control returns its text exactly as the program set it, even if the window system alters the text. After the
// user has edited the text, the control returns the window's text. The text of an item is always the text that the
// program added. Error 438 means that a control of this kind does not have the property.
#pragma once

#include <span>
#include <vector>

#include "runtime/Font.h"
#include "runtime/Geometry.h"
#include "runtime/TabOrder.h"
#include "runtime/Text.h"
#include "runtime/WindowsPort.h"

namespace runtime {

class Form;

enum class Align { kNone, kBottom };

/// The values that a control has after each load. Positions are in twips within the form's client area.
struct ControlDesign {
    ControlKind kind;
    String name = {};
    int index = kNoIndex;  ///< index in the control array; kNoIndex outside an array
    Rect bounds = {};
    Align align = Align::kNone;
    String text = {};  ///< caption or text
    String tag = {};
    int tabIndex = kNoIndex;   ///< position in the form's tab order; kNoIndex: not in the tab order
    bool sizesItself = false;  ///< a label that resizes itself to its text
    bool isCancel = false;     ///< Escape presses this button
    bool visible = true;
    String picture = {};  ///< name of an icon resource in the DLL or program that creates the windows

    static constexpr int kNoIndex = -1;
};

/// Returns the access key that `caption` marks with '&'; 0 if there is no mark.
char16_t MarkedCharacter(StringView caption);
/// Returns a caption as its button shows it. "&&" becomes '&', and a single '&' is removed.
String WithoutMarks(StringView caption);

class Control {
 public:
    /// `form` owns the control, and `tabs` is the tab order of `form`.
    Control(Form& form, TabOrder& tabs, ControlDesign design);
    Control(const Control&) = delete;
    Control& operator=(const Control&) = delete;
    virtual ~Control() = default;

    const String& Name() const { return design_.name; }
    const ControlDesign& Design() const { return design_; }
    int Index() const { return design_.index; }
    ControlKind Kind() const { return design_.kind; }
    bool IsCancel() const { return design_.isCancel; }
    /// True for the kinds that can have the focus: buttons and input controls.
    bool TakesFocus() const { return design_.kind == ControlKind::kButton || IsInput(design_.kind); }

    /// Position and size in twips within the form's client area. The height of a control with a drop-down list is the
    /// height of the closed control and depends only on its font. SetBounds ignores the height for such a control.
    Rect Bounds();
    void SetBounds(const Rect& bounds);
    Twips Left() { return Bounds().left; }
    Twips Top() { return Bounds().top; }
    Twips Width() { return Bounds().width; }
    Twips Height() { return Bounds().height; }
    void SetTop(Twips top);
    void SetHeight(Twips height);
    /// A hidden control cannot have the focus and gets no keys.
    bool Visible();
    void SetVisible(bool visible);
    String Tag();
    /// The text of the control, depending on its kind:
    /// - label, button: the caption
    /// - status bar, text box, text block, editable combo: the text
    /// - drop-down list, list box: the selected item, or "" if no item is selected
    ///
    /// SetText and SetFont give a label with `sizesItself` the size of its text. The lines wrap at the screen's width
    /// minus the width that the form has beside the label. If the design width of the label is larger, the lines wrap
    /// at the design width.
    /// SetText on a list selects the first item with this text; error 383 if no item has it. SetText on an editable
    /// combo leaves no item selected. Text, SetText, Font and SetFont throw error 438 for a picture.
    String Text();
    void SetText(StringView text);
    runtime::Font Font();
    void SetFont(const runtime::Font& font);
    /// Moves the control to position `index` of the form's tab order, counted from 0. An index beyond the last position
    /// means the last position. Error 380 for a negative index. Error 438 for a control that is not in the tab order.
    void SetTabIndex(int index);
    /// True if Tab stops at the control. Throws error 438 for a kind that cannot have the focus.
    bool TabStop();
    void SetTabStop(bool stop);
    /// Returns the button's access key in lower case; 0 for other kinds and if the caption marks no key. FormKeys.h
    /// describes the effect of the key.
    char16_t AccessKey();
    /// Repaints the control at once.
    void Refresh();
    /// Sets the name that a screen reader announces for an input control. Throws error 438 for other kinds.
    void SetAccessibleName(StringView name);

    // The following functions are for controls with an edit part. Positions and lengths are in UTF-16 units. A value
    // beyond the end of the text means the end.

    std::size_t SelStart();
    /// Also clears the selection. Throws error 380 for a negative `start`.
    void SetSelStart(std::ptrdiff_t start);
    std::size_t SelLength();
    /// Throws error 380 for a negative `length`.
    void SetSelLength(std::ptrdiff_t length);
    /// Replaces the selected part, as if the user had typed `text`.
    void Write(StringView text);

    // The following functions are for controls with a list. Items are numbered from 0.

    void AddItem(StringView item);
    /// Adds `items` in this order. If an item cannot be added, the items before it stay in the list.
    void AddItems(std::span<const String> items);
    /// Also clears the text of an editable combo.
    void ClearItems();
    int ItemCount();
    /// Throws error 381 for an index outside the list.
    String Item(int index);
    /// The index of the selected item; -1 if no item is selected.
    int ListIndex();
    /// Selects the item at `index`; -1 selects no item. An editable combo shows the item's text. Throws error 380 for
    /// an index outside the list.
    void SetListIndex(int index);
    /// True while the drop-down list is open. The form must be loaded.
    bool HasOpenList() const;
    /// Closes an open drop-down list of a loaded form. If `choose` is true, selects the highlighted item. Otherwise
    /// restores the item and the text from before the list was opened.
    void CloseList(bool choose);

 private:
    friend class Form;
    friend class TabOrder;

    // The form calls these functions.

    void Attach(NativeWindow& window);
    void Detach();
    /// Moves an aligned control to its edge of the client area.
    void Dock(Size inner);
    void OnEdited();
    void OnChosen(int item);

    /// True if the form is active and the control has the focus.
    bool HasFocus() const { return visible_ && TakesFocus() && native_ && native_->HasFocus(); }
    void CheckHasText();
    void SizeToText();
    void TakeNativeHeight();
    NativeEdit& LoadedEdit();
    NativeList& LoadedList();
    void Select(int index);
    String SelectedItem() const;
    String IndexRangeMessage(int least, int index) const;
    void FetchText();

    static constexpr int kNoItem = -1;

    Form& form_;
    TabOrder& tabs_;
    const ControlDesign design_;
    Rect bounds_;
    String text_;
    runtime::Font font_;
    bool tabStop_ = true;
    bool visible_ = true;
    std::vector<String> items_;
    int listIndex_ = kNoItem;
    bool userHasText_ = false;  ///< true if the user edited the text; the window's text is then newer than text_
    NativeControl* native_ = nullptr;
};

}  // namespace runtime
