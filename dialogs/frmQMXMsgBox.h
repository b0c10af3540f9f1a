// Declares the suite's message box. The box asks a modal question with the answers Yes, No, Yes To All and Cancel. Use
// the box for work that would otherwise ask the same question many times. Services show the box through ShowMessage.
// Home thread only.
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
    /// The answers. All codes except kYesToAll are codes of the system's message box.
    enum Result : std::int32_t { kCancel = 2, kYes = 6, kNo = 7, kYesToAll = 8 };

    static std::unique_ptr<runtime::Form>& Shared() { return services::Values().forms.messageBox; }

    frmQMXMsgBox();

    /// Asks the question, waits for the answer and unloads the form. Only the default-button bits (0x300) of `flags`
    /// are used. If the box is closed without a button, the answer is kCancel. Throws error 400 if this box has an open
    /// question. The open question is not affected. Errors of controls close the box and are thrown.
    std::int32_t ShowMe(StringView prompt, std::int32_t flags, StringView title);

 protected:
    void OnLoad() override;
    void OnClick(runtime::Control& control) override;
    void OnKeyDown(std::int16_t& keyCode, std::int16_t shift) override;
    void OnKeyPress(char16_t& character) override;

 private:
    static constexpr std::size_t kButtons = 4;

    runtime::Control& AddButton(int index, runtime::Twips left, StringView caption, StringView tag);
    void ChooseFirstButton(std::int32_t flags);
    void LayOut(std::int32_t origW, std::int32_t origH);
    /// Returns the title, the prompt and the buttons in the format in which the system's message box copies its texts.
    String TextToCopy();

    runtime::Control* lblPrompt_ = nullptr;
    std::array<runtime::Control*, kButtons> cmdBut_{};
    std::int32_t result_ = kCancel;
};

/// Asks a question with the process's shared box. If the shared box has an open question, uses a new box.
std::int32_t AskWithSuiteBox(StringView prompt, std::int32_t flags, StringView title);

}  // namespace dialogs
