// Controls: the parts of a form. A control exists as long as its form object; touching one of its properties loads
// the form, and each load starts again from the design values.
//
// Texts and items of input controls are held as they were given, whatever the window system makes of them, until the
// user changes them. A property that a kind of control lacks raises error 438.
//
// The form owns its controls; they are used on its thread.
#pragma once

#include <vector>

#include "runtime/Font.h"
#include "runtime/Geometry.h"
#include "runtime/TabOrder.h"
#include "runtime/Text.h"
#include "runtime/WindowsPort.h"

namespace runtime {

class Form;

enum class Align { kNone, kBottom };

/// A control's values at design time; places in twips within the form's client area.
struct ControlDesign {
    ControlKind kind;
    String name = {};
    int index = kNoIndex;  ///< in its control array
    Rect bounds = {};
    Align align = Align::kNone;
    String text = {};  ///< caption or text
    String tag = {};
    int tabIndex = kNoIndex;   ///< place in the form's tab order; none for a control that has no such place
    bool sizesItself = false;  ///< a label that follows its text
    bool isCancel = false;     ///< the button that Escape presses
    bool visible = true;
    String picture = {};  ///< the name of an icon among the resources of the module that has the window

    static constexpr int kNoIndex = -1;
};

/// The character that `caption` marks with '&' as the one to press together with Alt; 0 for none.
char16_t MarkedCharacter(StringView caption);

class Control {
 public:
    /// `tabs` is the form's; both outlive the control.
    Control(Form& form, TabOrder& tabs, ControlDesign design);
    Control(const Control&) = delete;
    Control& operator=(const Control&) = delete;
    virtual ~Control() = default;

    const String& Name() const { return design_.name; }
    const ControlDesign& Design() const { return design_; }
    int Index() const { return design_.index; }
    ControlKind Kind() const { return design_.kind; }
    bool IsCancel() const { return design_.isCancel; }
    /// The user can type or press here.
    bool TakesFocus() const { return design_.kind == ControlKind::kButton || IsInput(design_.kind); }

    /// Place in the form's client area. A control whose list drops down has a height of its own, that of its closed
    /// state, which follows its font; another height is not taken over.
    Rect Bounds();
    void SetBounds(const Rect& bounds);
    Twips Left() { return Bounds().left; }
    Twips Top() { return Bounds().top; }
    Twips Width() { return Bounds().width; }
    Twips Height() { return Bounds().height; }
    void SetLeft(Twips left);
    void SetTop(Twips top);
    void SetWidth(Twips width);
    void SetHeight(Twips height);
    /// A hidden control is reached by no key.
    bool Visible();
    void SetVisible(bool visible);
    String Tag();
    /// Caption of a label or button, text of a status bar, content of a text box or an editable combo, the selected
    /// item of a list. A label that sizes itself follows its text: its width grows up to what the screen holds, then
    /// its lines wrap. Setting it on a list selects the first item of that text, error 383 when there is none; on an
    /// editable combo no item is selected afterwards. Error 438 for a picture, which has no font either.
    String Text();
    void SetText(StringView text);
    runtime::Font Font();
    void SetFont(const runtime::Font& font);
    /// Place in the form's tab order, from 0; the others move along. A number behind the last one is the last place.
    /// Error 380 for a negative one, 438 for a control without a place.
    void SetTabIndex(int index);
    /// The user reaches it with Tab. Error 438 for a control that never takes the focus.
    bool TabStop();
    void SetTabStop(bool stop);
    /// The character that presses the button together with Alt, in lower case; 0 when its caption marks none.
    char16_t AccessKey();
    /// Repaints the control at once.
    void Refresh();
    /// What a screen reader calls an input control.
    void SetAccessibleName(StringView name);

    // Controls with an edit part. Places are in UTF-16 units; they stay within the text.

    std::size_t SelStart();
    /// Nothing is selected afterwards. Error 380 for a negative one.
    void SetSelStart(std::ptrdiff_t start);
    std::size_t SelLength();
    /// Error 380 for a negative one.
    void SetSelLength(std::ptrdiff_t length);

    // Controls with a list. Items count from 0.

    void AddItem(StringView item);
    /// Empties the text of an editable combo, too.
    void ClearItems();
    int ItemCount();
    /// Error 381 outside the list.
    String Item(int index);
    /// The selected item; -1 for none.
    int ListIndex();
    /// Error 380 outside the list. An editable combo gets the item's text.
    void SetListIndex(int index);
    /// The list has dropped down.
    bool HasOpenList() const;
    /// Takes a list that has dropped down away. Chooses the item that it shows as selected, or puts back what was there
    /// before.
    void CloseList(bool choose);

 private:
    friend class Form;
    friend class TabOrder;

    // Called by the form.

    void Attach(NativeWindow& window);
    void Detach();
    /// Places an aligned control at its edge of the client area.
    void Dock(Size inner);
    void OnEdited();
    void OnChosen(int item);

    /// The focus is on the control while the form is active.
    bool HasKeyboard() const { return visible_ && TakesFocus() && native_ && native_->HasKeyboard(); }
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
    bool userHasText_ = false;  ///< the window's text is newer than text_
    NativeControl* native_ = nullptr;
};

}  // namespace runtime
