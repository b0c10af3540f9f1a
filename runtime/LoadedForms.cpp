#include "runtime/LoadedForms.h"

#include <algorithm>

#include "runtime/Error.h"
#include "runtime/Form.h"
#include "runtime/NeverDestroyed.h"

namespace runtime {

Form& LoadedFormsCollection::At(std::size_t index) const {
    if (index >= forms_.size()) throw Error(kSubscriptOutOfRange);
    return *forms_[index];
}

Form* LoadedFormsCollection::LastToUnload() const {
    const auto found =
        std::find_if(forms_.rbegin(), forms_.rend(), [](const Form* form) { return !form->IsUnloading(); });
    return found == forms_.rend() ? nullptr : *found;
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
    static auto& forms = NeverDestroyed<LoadedFormsCollection>();
    return forms;
}

}  // namespace runtime
