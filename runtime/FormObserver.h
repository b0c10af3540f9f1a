// The interface of an object that observes forms: their actions, and errors that are ignored. The composition chooses
// at most one observer. The forms do not depend on the observer's implementation.
#pragma once

#include <exception>

namespace runtime {

class Form;

/// Unloaded is called on the form's thread or on the thread that abandons the form. ErrorIgnored is called on the
/// thread that ignores the error. All other functions are called on the form's thread. The functions must not throw and
/// must not use the form's properties.
class FormObserver {
 public:
    virtual ~FormObserver() = default;

    virtual void Loading(const Form& form) noexcept = 0;
    virtual void Loaded(const Form& form) noexcept = 0;
    /// The load failed, or the form's load handler has unloaded the form.
    virtual void NotLoaded(const Form& form, const std::exception_ptr& error) noexcept = 0;
    virtual void Unloading(const Form& form) noexcept = 0;
    virtual void UnloadRefused(const Form& form) noexcept = 0;
    virtual void Unloaded(const Form& form) noexcept = 0;
    /// `error` reaches no caller: IgnoreErrors has ignored it, or a handler has failed in the client's own message
    /// loop. May be called on any thread.
    virtual void ErrorIgnored(const std::exception& error) noexcept = 0;
};

/// Returns the observer; null if there is no observer.
FormObserver* CurrentFormObserver() noexcept;
/// Makes `observer` the observer. Call it before a form is created. Null removes the observer. The caller keeps
/// ownership.
void UseFormObserver(FormObserver* observer) noexcept;

}  // namespace runtime
