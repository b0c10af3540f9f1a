// Controls: what stands on a form. A control exists as long as its form object; touching one of its properties loads
// the form, and each load starts again from the design values.
#pragma once

#include "runtime/Font.h"
#include "runtime/Geometry.h"
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
    const Picture* picture = nullptr;

    static constexpr int kNoIndex = -1;
};

/// The character that `caption` marks with '&' as the one to press together with Alt; 0 for none.
char16_t MarkedCharacter(StringView caption);

class Control {
 public:
    /// `position` is the control's place among the form's controls, from 0.
    Control(Form& form, ControlDesign design, std::size_t position);
    Control(const Control&) = delete;
    Control& operator=(const Control&) = delete;
    virtual ~Control() = default;

    const String& Name() const { return design_.name; }
    const ControlDesign& Design() const { return design_; }
    int Index() const { return design_.index; }
    ControlKind Kind() const { return design_.kind; }
    bool IsCancel() const { return design_.isCancel; }
    /// The user can type or press here.
    bool TakesFocus() const { return design_.kind == ControlKind::kButton; }

    /// Place in the form's client area.
    Rect Bounds();
    void SetBounds(const Rect& bounds);
    String Tag();
    /// Caption of a label or button, text of a status bar. A label that sizes itself follows its text: its width grows
    /// up to what the screen holds, then its lines wrap.
    String Text();
    void SetText(StringView text);
    runtime::Font Font();
    void SetFont(const runtime::Font& font);
    /// Place in the form's tab order, from 0. Setting it moves the others along; a number behind the last one is the
    /// last place. Error 380 for a negative one, 438 for a control without a place.
    int TabIndex();
    void SetTabIndex(int index);
    /// The user reaches it with Tab. Error 438 for a control that never takes the focus.
    bool TabStop();
    void SetTabStop(bool stop);
    /// The character that presses the button together with Alt, in lower case; 0 when its caption marks none.
    char16_t AccessKey();
    /// Repaints the control at once.
    void Refresh();

 private:
    friend class Form;

    void Attach(NativeWindow& window);
    void Detach();
    /// Docks an aligned control anew after the client area changed.
    void FollowForm(Size inner);
    void FollowText();

    Form& form_;
    const ControlDesign design_;
    const std::size_t position_;
    Rect bounds_;
    String text_;
    runtime::Font font_;
    bool tabStop_ = true;
    NativeControl* native_ = nullptr;
};

}  // namespace runtime
