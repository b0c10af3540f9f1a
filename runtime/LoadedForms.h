// The collection of the loaded forms, in the order in which they were loaded.
#pragma once

#include <atomic>
#include <cstddef>
#include <vector>

namespace runtime {

class Form;

class LoadedFormsCollection {
 public:
    /// Returns the number of loaded forms. Any thread may call this function. Only the thread that owns the forms may
    /// call the other functions. After that thread has ended, the thread that cleans up may call them.
    std::size_t Count() const { return count_; }
    /// Returns the form at `index`. Throws error 9 for an index outside 0..Count-1.
    Form& At(std::size_t index) const;
    /// Returns the newest form that is not unloading; null if there is no such form. An unloading form stays in the
    /// collection until its handlers return. A loop that unloads all forms must therefore skip that form.
    Form* LastToUnload() const;

    /// Unloads the newest form until no form is left. Processes pending events after each of the first 100 unloads, and
    /// at least once. Ends when the newest form refuses to unload. After an error, the loop continues. The first error
    /// is thrown at the end.
    void UnloadAll();
    /// A form's unload handler calls this function. Unloads all forms that are not unloading, in the same way as
    /// UnloadAll. Processes pending events before each of the first 100 unloads. Does nothing if all loaded forms are
    /// unloading.
    void UnloadOthers();

    void Add(Form& form);
    void Remove(const Form& form);
    /// Removes all forms without accessing them. Used for forms that belonged to another thread.
    void Clear();

 private:
    std::vector<Form*> forms_;
    std::atomic<std::size_t> count_ = 0;
};

/// Returns the process's collection.
LoadedFormsCollection& LoadedForms();

}  // namespace runtime
