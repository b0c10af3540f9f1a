// A form with two buttons, a label and one control of each input kind. It logs the characters and the clicks that it
// receives.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "runtime/Form.h"

namespace tests {

class InputForm : public runtime::Form {
    using Kind = runtime::ControlKind;
    int next_ = 0;  // must precede the controls, which take their tab order from it

 public:
    InputForm()
        : Form({.name = u"inputs", .caption = u"Inputs", .left = 1500, .top = 750, .inner = {6000, 4500}}),
          text(Add(Kind::kTextBox, u"text", {60, 60, 5475, 315})),
          combo(Add(Kind::kCombo, u"combo", {60, 480, 5475, 315}, u"Combo1")),
          dropDown(Add(Kind::kDropDownList, u"dropDown", {60, 900, 5475, 315})),
          block(Add(Kind::kTextBlock, u"block", {60, 1320, 5475, 765})),
          list(Add(Kind::kListBox, u"list", {60, 2160, 5475, 840})),
          button(Add(Kind::kButton, u"button", {60, 3900, 1125, 345}, u"&Accept")),
          cancel(AddControl({.kind = Kind::kButton,
                             .name = u"cancel",
                             .bounds = {1260, 3900, 1125, 345},
                             .text = u"Cancel",
                             .tabIndex = 6,
                             .isCancel = true})),
          label(AddControl({.kind = Kind::kLabel, .name = u"label", .bounds = {60, 3300, 1500, 195}})) {}

    runtime::Control &text, &combo, &dropDown, &block, &list, &button, &cancel, &label;
    /// Entries: "form 13" (character), "text 13" (focused control and character), "click button".
    std::vector<std::string> log;
    /// Runs in the handler of the focused control, after `onKeyPress`.
    std::function<void(runtime::Control&, char16_t&)> onControlKeyPress;
    std::function<void(char16_t&)> onKeyPress;

 protected:
    void OnKeyPress(char16_t& character) override {
        log.push_back("form " + std::to_string(static_cast<int>(character)));
        if (onKeyPress) onKeyPress(character);
    }
    void OnControlKeyPress(runtime::Control& control, char16_t& character) override {
        log.push_back(runtime::ToUtf8(control.Name()) + " " + std::to_string(static_cast<int>(character)));
        if (onControlKeyPress) onControlKeyPress(control, character);
    }
    void OnClick(runtime::Control& control) override { log.push_back("click " + runtime::ToUtf8(control.Name())); }

 private:
    runtime::Control& Add(Kind kind, runtime::String name, runtime::Rect bounds, runtime::String content = {}) {
        return AddControl(
            {.kind = kind, .name = std::move(name), .bounds = bounds, .text = std::move(content), .tabIndex = next_++});
    }
};

}  // namespace tests
