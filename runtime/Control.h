// Controls: what stands on a form. A control exists as long as its form object; touching one of its properties loads
// the form, and each load starts again from the design values.
#pragma once

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
    Rect bounds;
    Align align = Align::kNone;
    String text = {};
    String tag = {};
};

class Control {
 public:
    Control(Form& form, ControlDesign design);
    Control(const Control&) = delete;
    Control& operator=(const Control&) = delete;
    virtual ~Control() = default;

    const String& Name() const { return design_.name; }
    /// Place in the form's client area.
    Rect Bounds();
    String Tag();
    String Text();
    void SetText(StringView text);
    /// Repaints the control at once.
    void Refresh();

 private:
    friend class Form;

    void Attach(NativeWindow& window);
    void Detach();
    /// Docks an aligned control anew after the client area changed.
    void FollowForm(Size inner);

    Form& form_;
    const ControlDesign design_;
    Rect bounds_;
    String text_;
    NativeControl* native_ = nullptr;
};

}  // namespace runtime
