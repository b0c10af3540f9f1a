// Declares the suite's query dialog. The dialog asks for one value in a text box, a combo box, a drop-down list, a
// block of text or a list box. The caller may add an extra button. Home thread only.
#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "dialogs/PromptForm.h"
#include "dialogs/QueryLayout.h"
#include "services/ProcessValues.h"

namespace dialogs {

using runtime::String;
using runtime::StringView;

class Qmxquery : public PromptForm {
 public:
    /// Values of `index` if the user has chosen no item.
    enum Result : std::int32_t { kNothingChosen = 0, kCancelled = -1, kExtraButton = -100 };

    static std::unique_ptr<runtime::Form>& Shared() { return services::Values().forms.query; }

    Qmxquery();

    /// Asks one question and waits for the answer.
    /// - `kind` is a QueryKind; any other number is kText.
    /// - `values[0]` is the initial text. The dialog removes its trailing blanks. The other values are the items of a
    ///   list.
    /// - On entry, `index` is the selected item, counted from 0, or -1 for none. On return, `index` is the subscript of
    ///   the chosen value in `values`, or a Result.
    /// - The result is the answer: empty if the user cancelled, the character U+0001 for the extra button. If the
    ///   dialog is closed without a button or Enter, the question is cancelled. The answer is also stored in
    ///   `values[0]`.
    ///
    /// Throws error 400 if this dialog has an open question. The open question is not affected. Other errors close the
    /// dialog and leave `index` unchanged: 6 (the prompt needs a height of more than 32 bits), 9 (no `values[0]`), 380
    /// (`index` is outside the list), and the errors of the controls.
    String QUERY(const String& title, const String& prompt, std::vector<String>& values, std::int32_t kind,
                 std::int32_t& index, bool showButton, const String& buttonCaption);

    // Values of the last question. The values stay after the form was unloaded.

    /// The form's outer height in twips.
    std::int32_t LayoutHeight() const { return layoutHeight_; }
    std::int32_t Kind() const { return kind_; }
    std::int32_t ResultIndex() const { return resultIndex_; }
    const String& ResultText() const { return resultText_; }

 protected:
    void OnLoad() override;
    void OnActivate() override;
    void OnClick(runtime::Control& control) override;
    void OnKeyPress(char16_t& character) override;
    void OnControlKeyPress(runtime::Control& control, char16_t& character) override;
    void OnKeyUp(std::int16_t& keyCode, std::int16_t shift) override;

 private:
    /// Returns the input control of a kind.
    runtime::Control& InputFor(std::int32_t kind) const;
    /// Returns the control whose height is used for the layout of a kind: the text box for a combo box or a drop-down
    /// list, otherwise the input control.
    runtime::Control& MeasuredInputFor(std::int32_t kind) const;
    std::int32_t LayOut(std::int32_t kind, StringView prompt, bool showButton);
    void Fill(const std::vector<String>& values, std::int32_t index);
    void Wait();
    void Accept();
    void Finish(StringView text, std::int32_t index);

    runtime::Control* lblPrompt_ = nullptr;
    runtime::Control* cmdAccept_ = nullptr;
    runtime::Control* cmdCancel_ = nullptr;
    runtime::Control* txtText_ = nullptr;
    runtime::Control* cboDropdown_ = nullptr;
    runtime::Control* cboCombo_ = nullptr;
    runtime::Control* txtTextBlock_ = nullptr;
    runtime::Control* cboList_ = nullptr;
    runtime::Control* F_Button_ = nullptr;

    std::int32_t layoutHeight_ = 0;
    std::int32_t kind_ = 0;
    std::int32_t resultIndex_ = 0;
    String resultText_;
    bool isAnswered_ = false;
};

/// Asks a question with ProcessValues::suiteQuery. Other code of the component calls this function.
String AskQuery(const String& title, const String& prompt, std::vector<String>& values, std::int32_t kind,
                std::int32_t& index, bool showButton, const String& buttonCaption);

/// Asks a question with the process's shared dialog. If the shared dialog has an open question, uses a new dialog.
String AskWithQueryDialog(const String& title, const String& prompt, std::vector<String>& values, std::int32_t kind,
                          std::int32_t& index, bool showButton, const String& buttonCaption);

}  // namespace dialogs
