// The loaded forms, in the order in which they were loaded.
#pragma once

#include <atomic>
#include <cstddef>
#include <vector>

namespace runtime {

class Form;

class LoadedFormsCollection {
 public:
    /// May be called on any thread. All other functions are for the thread that owns the forms, or for the thread that
    /// cleans up after that thread has ended.
    std::size_t Count() const { return count_; }
    /// Error 9 for an index outside 0..Count-1.
    Form& At(std::size_t index) const;
    /// The last form that is not already unloading, or null. A form that is unloading stays in the collection until its
    /// handlers return. A loop that unloads all forms must therefore skip it.
    Form* LastToUnload() const;

    /// Unloads the last form until none is left. Processes pending events after each unload, and at least once. Ends
    /// when the last form refuses to unload. After an error the loop continues; the first error is thrown at the end.
    void UnloadAll();
    /// For a call from a form's unload handler: like UnloadAll for the other forms. Processes pending events before
    /// each unload. Does nothing if no other form is loaded.
    void UnloadOthers();

    void Add(Form& form);
    void Remove(const Form& form);
    /// Removes all forms without accessing them. Used for forms that belong to another thread or were on its stack.
    void Clear();

 private:
    std::vector<Form*> forms_;
    std::atomic<std::size_t> count_ = 0;
};

/// The process's collection.
LoadedFormsCollection& LoadedForms();

}  // namespace runtime
