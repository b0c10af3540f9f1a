// PromptForm is the base of dialogs that ask one question and wait for the answer. The process has one shared dialog of
// each kind. AskWithShared asks a question with it. Home thread only.
#pragma once

#include <memory>

#include "runtime/Form.h"

namespace dialogs {

class PromptForm : public runtime::Form {
 public:
    /// True from the start of a question until its form was unloaded.
    bool HasOpenPrompt() const { return hasOpenPrompt_; }
    /// Centres `form` on the screen; see services::SetForm.
    static void SetForm(runtime::Form& form);

 protected:
    using Form::Form;

    bool IsRightToLeft() const override;
    /// Loads the form in one operation, so that its direction and its captions are of the same language.
    void Load();

    /// Represents one open question. The destructor unloads the form and ignores errors of the unload.
    class PromptSession {
     public:
        /// Throws error 400 if `form` has an open question.
        explicit PromptSession(PromptForm& form);
        ~PromptSession();
        PromptSession(const PromptSession&) = delete;
        PromptSession& operator=(const PromptSession&) = delete;

     private:
        PromptForm& form_;
        const std::unique_ptr<runtime::ResolutionScope> resolution_;
    };

 private:
    bool hasOpenPrompt_ = false;
};

/// The process's shared dialog of a kind; null before its first question and after the forms were abandoned.
template <typename Dialog>
Dialog* SharedDialog() {
    return static_cast<Dialog*>(Dialog::Shared().get());
}

/// Calls `ask` with the shared dialog of the kind. If that dialog has an open question, `ask` gets a new dialog
/// instead. A handler can therefore ask a second question while the first question is open. The second question is
/// answered first.
template <typename Dialog, typename Ask>
auto AskWithShared(Ask&& ask) {
    if (!SharedDialog<Dialog>()) Dialog::Shared() = std::make_unique<Dialog>();
    Dialog& shared = *SharedDialog<Dialog>();
    if (!shared.HasOpenPrompt()) return ask(shared);
    Dialog own;
    return ask(own);
}

}  // namespace dialogs
