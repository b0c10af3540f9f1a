#include "runtime/Control.h"

#include <utility>

#include "runtime/Form.h"

namespace runtime {

Control::Control(Form& form, ControlDesign design) : form_(form), design_(std::move(design)) {}

Rect Control::Bounds() {
    form_.EnsureLoaded();
    return bounds_;
}

String Control::Tag() {
    form_.EnsureLoaded();
    return design_.tag;
}

String Control::Text() {
    form_.EnsureLoaded();
    return text_;
}

void Control::SetText(StringView text) {
    form_.EnsureLoaded();
    text_ = text;
    native_->SetText(text_);
}

void Control::Refresh() {
    form_.EnsureLoaded();
    native_->Refresh();
}

void Control::Attach(NativeWindow& window) {
    bounds_ = design_.bounds;
    text_ = design_.text;
    native_ = &window.AddControl(design_.kind, design_.name);
    native_->SetText(text_);
    native_->SetBounds(bounds_);
    FollowForm(window.InnerSize());
}

void Control::Detach() {
    native_ = nullptr;
}

void Control::FollowForm(Size inner) {
    if (design_.align != Align::kBottom) return;
    bounds_ = {0, inner.height - bounds_.height, inner.width, bounds_.height};
    native_->SetBounds(bounds_);
}

}  // namespace runtime
