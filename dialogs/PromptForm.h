// The base of the dialogs that ask one question and wait for its answer: how a question begins and ends, and the one
// dialog of each kind that a process shares. Everything here is used on the home thread.
#pragma once

#include <memory>

#include "runtime/Form.h"

namespace dialogs {

class PromptForm : public runtime::Form {
 public:
    /// True from the call that asks until its answer was taken.
    bool HasOpenPrompt() const { return hasOpenPrompt_; }
    /// Moves `form` to the middle of the screen; a form that is larger moves down and right.
    static void SetForm(runtime::Form& form);

 protected:
    using Form::Form;

    /// One question. Its destructor unloads the form and ignores errors of that.
    class PromptSession {
     public:
        /// Error 400 while another question is open in `form`.
        explicit PromptSession(PromptForm& form);
        ~PromptSession();
        PromptSession(const PromptSession&) = delete;
        PromptSession& operator=(const PromptSession&) = delete;

     private:
        PromptForm& form_;
    };

 private:
    bool hasOpenPrompt_ = false;
};

/// The process's shared dialog of a kind; null before the first question.
template <typename Dialog>
Dialog* SharedDialog() {
    return static_cast<Dialog*>(Dialog::Shared().get());
}

/// Calls `ask` with the shared dialog of the kind. While a question is open in that one, `ask` gets a dialog of its
/// own: a handler can ask a second question, which is answered first and does not touch the outer one.
template <typename Dialog, typename Ask>
auto AskWithShared(Ask&& ask) {
    if (!SharedDialog<Dialog>()) Dialog::Shared() = std::make_unique<Dialog>();
    Dialog& shared = *SharedDialog<Dialog>();
    if (!shared.HasOpenPrompt()) return ask(shared);
    Dialog own;
    return ask(own);
}

}  // namespace dialogs
