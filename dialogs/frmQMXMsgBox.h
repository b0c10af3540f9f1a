// The suite's own message box: a modal question with the answers Yes, No, Yes To All and Cancel, for work that would
// else have to ask again and again. Services reach it through ShowMessage.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>

#include "dialogs/PromptForm.h"
#include "services/ProcessValues.h"

namespace dialogs {

using runtime::String;
using runtime::StringView;

class frmQMXMsgBox : public PromptForm {
 public:
    /// The answers; all but kYesToAll are the platform's own codes.
    enum Result : std::int32_t { kCancel = 2, kYes = 6, kNo = 7, kYesToAll = 8 };

    /// Where the process keeps its shared one.
    static std::unique_ptr<runtime::Form>& Shared() { return services::Values().forms.messageBox; }

    frmQMXMsgBox();

    /// Asks and waits; the form is unloaded afterwards. Of `flags` only the default-button bits count (0x300). Closing
    /// the box in any way but by a button is kCancel. Errors of controls pass and leave nothing open. Error 400 while
    /// this very box asks, which it does until its answer was taken.
    std::int32_t ShowMe(StringView prompt, std::int32_t flags, StringView title);

 protected:
    void OnLoad() override;
    void OnClick(runtime::Control& control) override;
    void OnKeyPress(char16_t& character) override;

 private:
    static constexpr std::size_t kButtons = 4;

    runtime::Control& AddButton(int index, runtime::Twips left, StringView caption, StringView tag);
    void ChooseFirstButton(std::int32_t flags);
    void LayOut(std::int32_t origW, std::int32_t origH);

    runtime::Control* lblPrompt_ = nullptr;
    std::array<runtime::Control*, kButtons> cmdBut_{};
    std::int32_t result_ = kCancel;
};

/// Asks with the process's shared box, or, while that one is open, with one of its own.
std::int32_t AskWithSuiteBox(StringView prompt, std::int32_t flags, StringView title);

}  // namespace dialogs
