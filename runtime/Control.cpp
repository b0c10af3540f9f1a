#include "runtime/Control.h"

#include <algorithm>
#include <utility>

#include "runtime/Error.h"
#include "runtime/Form.h"
#include "runtime/Ports.h"

namespace runtime {

Control::Control(Form& form, TabOrder& tabs, ControlDesign design)
    : form_(form), tabs_(tabs), design_(std::move(design)) {}

Rect Control::Bounds() {
    form_.EnsureLoaded();
    return bounds_;
}

void Control::SetBounds(const Rect& bounds) {
    form_.EnsureLoaded();
    bounds_ = bounds;
    native_->SetBounds(bounds_);
    TakeNativeHeight();
}

void Control::SetTop(Twips top) {
    const Rect now = Bounds();
    SetBounds({now.left, top, now.width, now.height});
}

void Control::SetHeight(Twips height) {
    const Rect now = Bounds();
    SetBounds({now.left, now.top, now.width, height});
}

bool Control::Visible() {
    form_.EnsureLoaded();
    return visible_;
}

void Control::SetVisible(bool visible) {
    form_.EnsureLoaded();
    if (visible == visible_) return;
    const bool loseFocus = !visible && tabs_.TakeFocusFrom(*this);
    visible_ = visible;
    // Move the focus before the window is hidden. Otherwise no control would have the focus. A hidden form chooses a
    // control when the form is shown.
    if (loseFocus && form_.Visible()) tabs_.Walk(1);
    // A handler of the focus change may have unloaded the form.
    if (native_) native_->SetVisible(visible);
}

String Control::Tag() {
    form_.EnsureLoaded();
    return design_.tag;
}

void Control::CheckHasText() {
    form_.EnsureLoaded();
    if (design_.kind == ControlKind::kPicture) throw ErrorAbout(kPropertyNotSupported, Name());
}

String Control::Text() {
    CheckHasText();
    if (HasList(design_.kind) && !HasEdit(design_.kind)) return SelectedItem();
    FetchText();
    return text_;
}

void Control::SetText(StringView text) {
    CheckHasText();
    if (HasList(design_.kind) && !HasEdit(design_.kind)) {
        const auto found = std::find(items_.begin(), items_.end(), text);
        if (found == items_.end()) throw ErrorAbout(kPropertyIsReadOnly, Name() + u" has no item with this text");
        Select(static_cast<int>(found - items_.begin()));
        return;
    }
    text_ = text;
    userHasText_ = false;
    listIndex_ = kNoItem;
    native_->SetText(text_);
    SizeToText();
}

runtime::Font Control::Font() {
    CheckHasText();
    return font_;
}

void Control::SetFont(const runtime::Font& font) {
    CheckHasText();
    if (font == font_) return;
    font_ = font;
    native_->SetFont(font_);
    // A new font changes the height of a window with a list. Set the bounds again.
    if (HasList(design_.kind)) native_->SetBounds(bounds_);
    SizeToText();
    TakeNativeHeight();
}

void Control::SetTabIndex(int index) {
    form_.EnsureLoaded();
    if (index < 0) throw ErrorAbout(kInvalidPropertyValue, u"TabIndex of " + Name() + u" must not be negative");
    tabs_.Move(*this, index);
}

bool Control::TabStop() {
    form_.EnsureLoaded();
    if (!TakesFocus()) throw ErrorAbout(kPropertyNotSupported, Name());
    return tabStop_;
}

void Control::SetTabStop(bool stop) {
    form_.EnsureLoaded();
    if (!TakesFocus()) throw ErrorAbout(kPropertyNotSupported, Name());
    tabStop_ = stop;
}

char16_t Control::AccessKey() {
    form_.EnsureLoaded();
    const char16_t marked = design_.kind == ControlKind::kButton ? MarkedCharacter(text_) : u'\0';
    return marked == 0 ? marked : CurrentPorts().locale.LowerCase(StringView(&marked, 1)).front();
}

char16_t MarkedCharacter(StringView caption) {
    for (std::size_t i = 0; i + 1 < caption.size(); ++i) {
        if (caption[i] != u'&') continue;
        // "&&" shows one '&'. An '&' before a blank marks no access key.
        if (caption[++i] != u'&' && caption[i] != u' ') return caption[i];
    }
    return 0;
}

String WithoutMarks(StringView caption) {
    String shown;
    for (std::size_t i = 0; i < caption.size(); ++i) {
        if (caption[i] == u'&' && ++i == caption.size()) break;
        shown += caption[i];
    }
    return shown;
}

void Control::Refresh() {
    form_.EnsureLoaded();
    native_->Refresh();
}

void Control::Attach(NativeWindow& window) {
    bounds_ = design_.bounds;
    text_ = design_.text;
    font_ = {};
    tabStop_ = true;
    visible_ = design_.visible;
    items_.clear();
    listIndex_ = kNoItem;
    userHasText_ = false;
    native_ = &window.AddControl({design_.kind, design_.name, design_.picture});
    native_->SetFont(font_);
    if (!text_.empty()) native_->SetText(text_);
    if (design_.align == Align::kNone) native_->SetBounds(bounds_);
    Dock(window.InnerSize());
    if (!visible_) native_->SetVisible(false);
    TakeNativeHeight();
}

void Control::Detach() {
    native_ = nullptr;
}

void Control::Dock(Size inner) {
    if (design_.align != Align::kBottom) return;
    bounds_ = {0, inner.height - bounds_.height, inner.width, bounds_.height};
    native_->SetBounds(bounds_);
}

void Control::SizeToText() {
    if (!design_.sizesItself) return;
    WindowsPort& windows = CurrentPorts().windows;
    const Twips besideLabel = form_.Width() - bounds_.width;
    const Twips widest = std::max(design_.bounds.width, windows.ScreenSize().width - besideLabel);
    const Size size = windows.TextSize(text_, font_, widest);
    bounds_ = {bounds_.left, bounds_.top, size.width, size.height};
    native_->SetBounds(bounds_);
}

void Control::TakeNativeHeight() {
    if (DropsDown(design_.kind)) bounds_.height = native_->List()->ClosedHeight();
}

}  // namespace runtime
