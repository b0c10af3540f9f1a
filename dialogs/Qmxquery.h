// The suite's query dialog: asks for one value as a line of text, in a combo box, a drop-down list, a block of text or
// a list box, with an extra button when the caller wants one.
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
    /// What `index` is afterwards when it is no place among the values.
    enum Result : std::int32_t { kNothingChosen = 0, kCancelled = -1, kExtraButton = -100 };

    /// Where the process keeps its shared one.
    static std::unique_ptr<runtime::Form>& Shared() { return services::Values().forms.query; }

    Qmxquery();

    /// Asks and waits. `kind` is a QueryKind; any other number is kText. `values` holds the initial text and, behind
    /// it, the items of a list; on entry `index` is the selected item counted from 0, -1 for none. Afterwards `index`
    /// is the subscript of the chosen value or a Result, and `values[0]`, which is returned as well, the answer: empty
    /// when cancelled, the character 1 for the extra button. Closing the dialog in any way but by a button or Enter
    /// cancels.
    ///
    /// Trailing blanks of `values[0]` are removed even when no dialog shows. Errors of controls pass and leave nothing
    /// open, and `index` is what it was: 6 for a prompt too long for 32 bits of height, 9 without a `values[0]`, 380
    /// for an `index` outside a list. Error 400 while this very dialog asks.
    String QUERY(const String& title, const String& prompt, std::vector<String>& values, std::int32_t kind,
                 std::int32_t& index, bool showButton, const String& buttonCaption);

    // What the last question left; it outlives the window.

    /// Outer, in twips.
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
    /// The control that takes the kind's value.
    runtime::Control& InputFor(std::int32_t kind) const;
    /// The one whose height the layout reckons with.
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

/// Asks with the query dialog of the process (ProcessValues::suiteQuery). Features above call this one.
String AskQuery(const String& title, const String& prompt, std::vector<String>& values, std::int32_t kind,
                std::int32_t& index, bool showButton, const String& buttonCaption);

/// Asks with the process's shared dialog, or, while that one is open, with one of its own.
String AskWithQueryDialog(const String& title, const String& prompt, std::vector<String>& values, std::int32_t kind,
                          std::int32_t& index, bool showButton, const String& buttonCaption);

}  // namespace dialogs
