#include "runtime/TabOrder.h"

#include <algorithm>
#include <iterator>

#include "runtime/Control.h"
#include "runtime/Error.h"

namespace runtime {

void TabOrder::Reset() {
    Clear();
    for (const auto& control : controls_) {
        if (control->Design().tabIndex != ControlDesign::kNoIndex) order_.push_back(control.get());
    }
    std::stable_sort(order_.begin(), order_.end(),
                     [](const Control* a, const Control* b) { return a->Design().tabIndex < b->Design().tabIndex; });
}

void TabOrder::Clear() {
    order_.clear();
    focused_ = nullptr;
}

void TabOrder::Move(Control& control, int place) {
    const auto found = std::find(order_.begin(), order_.end(), &control);
    if (found == order_.end()) throw ErrorAbout(kPropertyNotSupported, control.Name());
    order_.erase(found);
    const int last = static_cast<int>(order_.size());
    order_.insert(order_.begin() + std::min(place, last), &control);
}

Control* TabOrder::Focused() {
    const auto now =
        std::find_if(controls_.begin(), controls_.end(), [](const auto& control) { return control->HasFocus(); });
    if (now != controls_.end()) focused_ = now->get();
    return focused_;
}

void TabOrder::Focus(Control& control) {
    if (!control.TakesFocus()) throw ErrorAbout(kPropertyNotSupported, control.Name());
    if (!control.visible_) {
        throw ErrorAbout(kInvalidProcedureCall, control.Name() + u" is hidden and cannot take the focus");
    }
    focused_ = &control;
    control.native_->SetFocus();
}

void TabOrder::RestoreFocus() {
    if (focused_) focused_->native_->SetFocus();
}

bool TabOrder::TakeFocusFrom(const Control& control) {
    const bool had = Focused() == &control;
    if (had) focused_ = nullptr;
    return had;
}

void TabOrder::Walk(int step) {
    const std::vector<Control*> reachable = Reachable();
    if (reachable.empty()) return;
    const int count = static_cast<int>(reachable.size());
    const auto found = std::find(reachable.begin(), reachable.end(), Focused());
    int next = step > 0 ? 0 : count - 1;
    if (found != reachable.end()) next = (static_cast<int>(found - reachable.begin()) + step + count) % count;
    Focus(*reachable[static_cast<std::size_t>(next)]);
}

/// Returns the visible controls whose tab stop is on. If all tab stops are off, returns all visible controls that can
/// have the focus. Localising a form turns every tab stop off, and the form must stay usable by keyboard.
std::vector<Control*> TabOrder::Reachable() const {
    std::vector<Control*> all;
    std::vector<Control*> stops;
    for (Control* control : order_) {
        if (!control->TakesFocus() || !control->visible_) continue;
        all.push_back(control);
        if (control->tabStop_) stops.push_back(control);
    }
    return stops.empty() ? all : stops;
}

std::vector<Control*> TabOrder::WithAccessKey(char16_t character) const {
    std::vector<Control*> marked;
    std::copy_if(order_.begin(), order_.end(), std::back_inserter(marked), [character](Control* control) {
        return character != 0 && control->visible_ && control->AccessKey() == character;
    });
    return marked;
}

void TabOrder::FocusNextOf(const std::vector<Control*>& controls) {
    const auto end = order_.end();
    const auto focused = std::find(order_.begin(), end, Focused());
    const auto next = focused == end ? end : std::find_first_of(focused + 1, end, controls.begin(), controls.end());
    Focus(next == end ? *controls.front() : **next);
}

}  // namespace runtime
