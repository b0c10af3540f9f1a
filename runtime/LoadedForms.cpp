#include "runtime/LoadedForms.h"

#include <algorithm>

#include "runtime/Error.h"
#include "runtime/Form.h"
#include "runtime/Ports.h"
#include "runtime/ProcessState.h"
#include "runtime/Screen.h"

namespace runtime {
namespace {

/// Far more than the number of forms. Only a client that loads a form after every unload reaches this number.
constexpr int kMaxRoundsWithEvents = 100;

/// Unloads forms, the newest form first.
/// - The loop ends if the newest form refuses to unload, because the form would refuse again.
/// - A form that an event handler loads again is unloaded again.
/// - After kMaxRoundsWithEvents rounds no more events are processed. The loop therefore ends even if a client loads a
///   form in each event.
class UnloadLoop {
 public:
    bool HasMore() const {
        const Form* const next = LoadedForms().LastToUnload();
        return next && next != refused_;
    }
    void LetEventsRun() {
        if (++rounds_ <= kMaxRoundsWithEvents) error_.Run([] { DoEvents(); });
    }
    void UnloadLast() {
        Form* const last = LoadedForms().LastToUnload();
        refused_ = nullptr;
        if (!last) return;
        error_.Run([&] {
            if (!last->Unload()) refused_ = last;
        });
    }
    void RethrowFirstError() const { error_.Rethrow(); }

 private:
    const Form* refused_ = nullptr;
    int rounds_ = 0;
    FirstError error_;
};

}  // namespace

Form& LoadedFormsCollection::At(std::size_t index) const {
    if (index >= forms_.size()) throw Error(kSubscriptOutOfRange);
    return *forms_[index];
}

Form* LoadedFormsCollection::LastToUnload() const {
    const auto found =
        std::find_if(forms_.rbegin(), forms_.rend(), [](const Form* form) { return !form->IsUnloading(); });
    return found == forms_.rend() ? nullptr : *found;
}

void LoadedFormsCollection::UnloadAll() {
    UnloadLoop forms;
    do {
        forms.UnloadLast();
        forms.LetEventsRun();
    } while (forms.HasMore());
    forms.RethrowFirstError();
}

void LoadedFormsCollection::UnloadOthers() {
    UnloadLoop forms;
    while (forms.HasMore()) {
        forms.LetEventsRun();
        forms.UnloadLast();
    }
    forms.RethrowFirstError();
}

void LoadedFormsCollection::Add(Form& form) {
    forms_.push_back(&form);
    count_ = forms_.size();
}

void LoadedFormsCollection::Remove(const Form& form) {
    std::erase(forms_, &form);
    count_ = forms_.size();
}

void LoadedFormsCollection::Clear() {
    forms_.clear();
    count_ = 0;
}

LoadedFormsCollection& LoadedForms() {
    return State().loadedForms;
}

}  // namespace runtime
