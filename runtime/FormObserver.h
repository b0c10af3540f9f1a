// Watches forms from outside: what they do, and errors that are not passed on. There is one at most, chosen by the
// composition; the forms know nothing of what it does with what it sees.
#pragma once

#include <exception>

namespace runtime {

class Form;

/// Called on the form's thread, Unloaded also on the one that gives the form up. None of the functions may throw, or
/// use the form's properties.
class FormObserver {
 public:
    virtual ~FormObserver() = default;

    virtual void Loading(const Form& form) noexcept = 0;
    virtual void Loaded(const Form& form) noexcept = 0;
    /// The load failed, or its handler has unloaded the form.
    virtual void NotLoaded(const Form& form, const std::exception_ptr& error) noexcept = 0;
    virtual void Unloading(const Form& form) noexcept = 0;
    virtual void UnloadRefused(const Form& form) noexcept = 0;
    virtual void Unloaded(const Form& form) noexcept = 0;
    /// IgnoreErrors has skipped a statement.
    virtual void ErrorIgnored(const std::exception& error) noexcept = 0;
};

/// Null if nothing observes.
FormObserver* CurrentFormObserver() noexcept;
/// Selects the observer before a form is created; null removes it. The caller keeps ownership.
void UseFormObserver(FormObserver* observer) noexcept;

}  // namespace runtime
