// What the dialogs that ask one question and wait for its answer have in common: how a question begins and ends, and
// the one dialog of each kind that a process shares.
#pragma once

#include <memory>

#include "runtime/Form.h"
#include "runtime/NeverDestroyed.h"

namespace dialogs {

class AskingForm : public runtime::Form {
 public:
    /// From the call that asks until its answer was taken.
    bool IsAsking() const { return isAsking_; }
    /// Moves `form` to the middle of the screen; a form that is larger moves down and right.
    static void SetForm(runtime::Form& form);

 protected:
    using Form::Form;

    /// One question. At its end, however it comes, the form is unloaded, with errors skipped.
    class Asking {
     public:
        /// Error 400 while `form` asks already.
        explicit Asking(AskingForm& form);
        ~Asking();
        Asking(const Asking&) = delete;
        Asking& operator=(const Asking&) = delete;

     private:
        AskingForm& form_;
    };

 private:
    bool isAsking_ = false;
};

/// The process's shared dialog of a kind, none at first.
template <typename Dialog>
std::unique_ptr<Dialog>& SharedDialog() {
    static auto& shared = runtime::NeverDestroyed<std::unique_ptr<Dialog>>();
    return shared;
}

/// The dialog is not destroyed, because its thread may be asking with it.
template <typename Dialog>
void ForgetShared() {
    static_cast<void>(SharedDialog<Dialog>().release());
}

/// Calls `ask` with the shared dialog of the kind, or, while that one asks, with one of its own: a question that a
/// handler asks meanwhile is answered first and does not touch the outer one.
template <typename Dialog, typename Ask>
auto AskWithShared(Ask&& ask) {
    std::unique_ptr<Dialog>& shared = SharedDialog<Dialog>();
    if (!shared) shared = std::make_unique<Dialog>();
    if (!shared->IsAsking()) return ask(*shared);
    Dialog own;
    return ask(own);
}

}  // namespace dialogs
