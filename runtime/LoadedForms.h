// The forms that are loaded, in the order in which they were loaded.
#pragma once

#include <atomic>
#include <cstddef>
#include <vector>

namespace runtime {

class Form;

class LoadedFormsCollection {
 public:
    /// May be asked by any thread; everything else is for the thread that owns the forms, or for the one that notices
    /// that this thread has ended.
    std::size_t Count() const { return count_; }
    /// Error 9 outside 0..Count-1.
    Form& At(std::size_t index) const;
    /// The last form whose unload is not already running, or null. Loops that unload "the last form until none is
    /// left" ask for this one, so that they end when only forms remain that go as soon as their handlers return.
    Form* LastToUnload() const;

    /// Unloads the last form until none is left, and lets pending events run after each unload; once at least. A form
    /// that refuses ends the loop. An error does not: every form has its turn, and the first error is thrown at the
    /// end.
    void UnloadAll();
    /// The same from inside a form's unload, which is not one of them: pending events run before each unload, and
    /// nothing happens when no other form is loaded.
    void UnloadOthers();

    void Add(Form& form);
    void Remove(const Form& form);
    /// Gives up all forms, which are not touched: they belong to another thread, or were on its stack.
    void Clear();

 private:
    std::vector<Form*> forms_;
    std::atomic<std::size_t> count_ = 0;
};

/// The process's collection.
LoadedFormsCollection& LoadedForms();

}  // namespace runtime
