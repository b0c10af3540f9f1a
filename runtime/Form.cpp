#include "runtime/Form.h"

#include <algorithm>
#include <utility>

#include "runtime/Error.h"
#include "runtime/FormObserver.h"
#include "runtime/LoadedForms.h"
#include "runtime/Ports.h"
#include "runtime/ScopeGuard.h"

namespace runtime {
namespace {

constexpr std::int16_t kScaleTwips = 1;
constexpr std::int16_t kLastScaleMode = 7;

using ObserverCall = void (FormObserver::*)(const Form& form) noexcept;

void Report(ObserverCall call, const Form& form) noexcept {
    if (FormObserver* const observer = CurrentFormObserver()) (observer->*call)(form);
}

/// Reports that the load failed with the exception that is being handled.
void ReportNotLoaded(const Form& form) noexcept {
    if (FormObserver* const observer = CurrentFormObserver()) observer->NotLoaded(form, std::current_exception());
}

}  // namespace

Form::Form(FormDesign design) : design_(std::move(design)) {}

Form::~Form() {
    if (window_) DestroyWindow();
}

std::vector<const ControlDesign*> Form::ControlDesigns() const {
    std::vector<const ControlDesign*> designs;
    designs.reserve(controls_.size());
    for (const auto& control : controls_) designs.push_back(&control->Design());
    return designs;
}

Control& Form::AddControl(ControlDesign design) {
    if (window_)
        throw ErrorAbout(kInvalidProcedureCall, Name() + u" is already loaded; add its controls before it is loaded");
    controls_.push_back(std::make_unique<Control>(*this, tabs_, std::move(design)));
    return *controls_.back();
}

void Form::EnsureLoaded() {
    if (window_) return;
    if (stage_ == Stage::kLoadingWithoutWindow) throw FormUnloadedInLoad(Name());
    stage_ = Stage::kLoadingWithoutWindow;
    Report(&FormObserver::Loading, *this);
    try {
        MakeWindow();
        OnLoad();
        if (!window_) throw FormUnloadedInLoad(Name());
    } catch (...) {
        if (window_) DestroyWindow();
        stage_ = Stage::kUnloaded;
        ReportNotLoaded(*this);
        throw;
    }
    stage_ = Stage::kLoaded;
    Report(&FormObserver::Loaded, *this);
}

void Form::MakeWindow() {
    caption_ = design_.caption;
    state_ = WindowState::kNormal;
    visible_ = false;
    wasShown_ = false;
    isRightToLeft_ = IsRightToLeft();
    enterPressedHere_ = false;
    isDestroyedByOthers_ = false;
    backColour_ = design_.backColour;
    font_ = {};
    scaleMode_ = kScaleTwips;
    WindowsPort& windows = CurrentPorts().windows;
    const Size outer = windows.OuterSize(design_.inner, design_.border);
    bounds_ = {design_.left, design_.top, outer.width, outer.height};
    window_ = windows.MakeWindow({caption_, design_.border, bounds_, backColour_, isRightToLeft_}, *this);
    stage_ = Stage::kLoading;
    LoadedForms().Add(*this);
    for (const auto& control : controls_) control->Attach(*window_);
    tabs_.Reset();
}

void Form::DestroyWindow() {
    LoadedForms().Remove(*this);
    for (const auto& control : controls_) control->Detach();
    tabs_.Clear();
    visible_ = false;
    stage_ = stage_ == Stage::kLoading ? Stage::kLoadingWithoutWindow : Stage::kUnloaded;
    // Clear window_ before destroying the window: callbacks must already see the form as unloaded.
    const auto window = std::move(window_);
    Report(&FormObserver::Unloaded, *this);
    if (modal_) modal_->End();
}

bool Form::Unload(UnloadReason reason) {
    if (!window_ || stage_ == Stage::kUnloading) return true;
    const Stage before = std::exchange(stage_, Stage::kUnloading);
    Report(&FormObserver::Unloading, *this);
    bool cancel = false;
    FirstError error;
    error.Run([&] { OnQueryUnload(cancel, reason); });
    if (!cancel) error.Run([&] { OnUnload(cancel); });
    if (window_) stage_ = before;
    const bool isRefused = window_ && cancel && !isDestroyedByOthers_ && !error.IsKept();
    if (window_ && !isRefused) DestroyWindow();
    if (isRefused) Report(&FormObserver::UnloadRefused, *this);
    error.Rethrow();
    return !isRefused;
}

void Form::AbandonWindow() {
    // The modal loop is on the stack of the form's thread, which may no longer exist.
    modal_ = nullptr;
    if (window_) DestroyWindow();
    stage_ = Stage::kUnloaded;
}

String Form::Caption() {
    EnsureLoaded();
    return caption_;
}

void Form::SetCaption(StringView caption) {
    EnsureLoaded();
    caption_ = caption;
    window_->SetCaption(caption_);
}

String Form::Tag() {
    EnsureLoaded();
    return design_.tag;
}

Twips Form::Left() {
    EnsureLoaded();
    return bounds_.left;
}

Twips Form::Top() {
    EnsureLoaded();
    return bounds_.top;
}

Twips Form::Width() {
    EnsureLoaded();
    return bounds_.width;
}

Twips Form::Height() {
    EnsureLoaded();
    return bounds_.height;
}

void Form::SetWidth(Twips width) {
    EnsureLoaded();
    SetBounds({bounds_.left, bounds_.top, width, bounds_.height});
}

void Form::SetHeight(Twips height) {
    EnsureLoaded();
    SetBounds({bounds_.left, bounds_.top, bounds_.width, height});
}

void Form::Move(Twips left, Twips top) {
    EnsureLoaded();
    SetBounds({left, top, bounds_.width, bounds_.height});
}

void Form::SetBounds(const Rect& bounds) {
    if (state_ != WindowState::kNormal) throw ErrorAbout(kMoveWhileMinimisedOrMaximised, Name());
    // The window reports its new bounds in whole pixels to BoundsChanged, which runs the handlers.
    window_->SetBounds(bounds);
}

void Form::Resized() {
    const Size inner = window_->InnerSize();
    for (const auto& control : controls_) control->Dock(inner);
    OnResize();
}

Size Form::InnerSize() {
    EnsureLoaded();
    return window_->InnerSize();
}

WindowState Form::State() {
    EnsureLoaded();
    return state_;
}

void Form::SetState(WindowState state) {
    EnsureLoaded();
    if (state < WindowState::kNormal || state > WindowState::kMaximised) {
        throw ErrorAbout(kInvalidPropertyValue, u"WindowState of " + Name() + u" must be 0 to 2");
    }
    // A visible window reports its new state. A hidden window gets the state when it is shown.
    if (visible_) {
        window_->SetState(state);
    } else {
        state_ = state;
    }
}

bool Form::Visible() {
    EnsureLoaded();
    return visible_;
}

void Form::SetVisible(bool visible) {
    if (!visible) return Hide();
    EnsureLoaded();
    if (visible_) return;
    if (!std::exchange(wasShown_, true)) {
        Resized();
        if (!window_) throw ErrorAbout(kObjectWasUnloaded, Name());
    }
    visible_ = true;
    if (!tabs_.Focused()) tabs_.Walk(1);
    if (window_) window_->Show(state_);
}

void Form::ShowModal() {
    EnsureLoaded();
    if (visible_) throw ErrorAbout(kFormAlreadyDisplayed, Name());
    const auto loop = CurrentPorts().windows.BeginModal(*window_);
    // BeginModal sends messages to the windows that it disables. A handler of such a message may have unloaded this
    // form.
    if (!window_) return;
    modal_ = loop.get();
    const ScopeGuard ended([this] {
        // Hide the form, even after an exception.
        if (window_) IgnoreErrors([this] { Hide(); });
        modal_ = nullptr;
    });
    SetVisible(true);
    loop->Run();
}

void Form::Hide() {
    EnsureLoaded();
    const bool wasVisible = std::exchange(visible_, false);
    // Enable the other windows before hiding this one, because one of them becomes the active window.
    if (wasVisible && modal_) modal_->End();
    // End sends messages to the windows that it enables. A handler of such a message may have unloaded this form.
    if (window_) window_->Hide();
}

Colour Form::BackColour() {
    EnsureLoaded();
    return backColour_;
}

void Form::SetBackColour(Colour colour) {
    EnsureLoaded();
    backColour_ = colour;
    window_->SetBackColour(colour);
}

std::int16_t Form::ScaleMode() {
    EnsureLoaded();
    return scaleMode_;
}

void Form::SetScaleMode(std::int16_t mode) {
    EnsureLoaded();
    if (mode < 0 || mode > kLastScaleMode)
        throw ErrorAbout(kInvalidPropertyValue, u"ScaleMode of " + Name() + u" must be 0 to 7");
    scaleMode_ = mode;
}

Font Form::Font() {
    EnsureLoaded();
    return font_;
}

void Form::SetFont(const runtime::Font& font) {
    EnsureLoaded();
    font_ = font;
}

Size Form::TextSize(StringView text) {
    EnsureLoaded();
    return CurrentPorts().windows.TextSize(text, font_, kEndlessWidth);
}

void Form::SetTopMost(bool onTop) {
    EnsureLoaded();
    window_->SetTopMost(onTop);
}

void Form::SetAccessibleDescription(StringView description) {
    EnsureLoaded();
    window_->SetAccessibleDescription(String(description));
}

NativeHandle Form::Handle() {
    EnsureLoaded();
    return window_->Handle();
}

NativeHandle Form::DeviceContext() {
    EnsureLoaded();
    return window_->DeviceContext();
}

const std::vector<std::unique_ptr<Control>>& Form::Controls() {
    EnsureLoaded();
    return controls_;
}

Control* Form::FocusedControl() {
    EnsureLoaded();
    return tabs_.Focused();
}

void Form::SetFocus(Control& control) {
    EnsureLoaded();
    tabs_.Focus(control);
}

void Form::Closing(UnloadReason reason) {
    Unload(reason);
}

void Form::BoundsChanged(const Rect& outer, std::optional<WindowState> state) {
    const bool stateChanged = state && *state != state_;
    if (stateChanged) state_ = *state;
    const bool isIcon = state_ == WindowState::kMinimised;
    const bool sizeChanged = !isIcon && outer.Size() != bounds_.Size();
    if (!isIcon) bounds_ = outer;
    const bool isMade = window_ != nullptr;
    if (isMade && (stateChanged || sizeChanged)) Resized();
}

void Form::VisibilityChanged(bool visible) {
    if (!window_ || visible == visible_) return;
    visible_ = visible;
    if (!visible) {
        if (modal_) modal_->End();
        return;
    }
    if (!std::exchange(wasShown_, true)) Resized();
    if (window_ && !tabs_.Focused()) tabs_.Walk(1);
    if (window_) OnShownByOthers();
}

void Form::Activated() {
    OnActivate();
}

void Form::Lost() {
    isDestroyedByOthers_ = true;
    IgnoreErrors([this] { Unload(UnloadReason::kSystemEnd); });
}

void Form::Clicked(std::size_t control) {
    // Store the focus now, because the handler may open a dialog. After the dialog, the same control gets the focus
    // again.
    tabs_.StoreFocus();
    OnClick(*controls_.at(control));
}

void Form::Edited(std::size_t control) {
    controls_.at(control)->OnEdited();
}

void Form::Chosen(std::size_t control, int item) {
    controls_.at(control)->OnChosen(item);
}

}  // namespace runtime
