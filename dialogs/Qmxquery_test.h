// Runs the query dialog in memory. A character is 90 twips wide and a line is 195 twips high. The frame and the title
// bar use 375 twips of a form's height. A pixel is one twip, so that bounds are not rounded.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <vector>

#include "dialogs/Qmxquery.h"
#include "tests/support/ComponentFixture.h"
#include "tests/support/Question.h"

namespace dialogs {

using User = std::function<void(runtime::headless::MemoryWindow& dialog)>;

inline std::vector<StringView> ShownInputs(const runtime::headless::MemoryWindow& dialog) {
    std::vector<StringView> shown;
    for (const StringView name : {u"txtText", u"cboDropdown", u"cboCombo", u"txtTextBlock", u"cboList"}) {
        if (dialog.Control(name).visible) shown.push_back(name);
    }
    return shown;
}

inline std::size_t PlaceOf(const runtime::headless::MemoryWindow& dialog, StringView name) {
    const auto& all = dialog.controls;
    const auto found = std::find_if(all.begin(), all.end(), [name](const auto& c) { return c->look.name == name; });
    return static_cast<std::size_t>(found - all.begin());
}

inline void Click(runtime::headless::MemoryWindow& dialog, StringView name) {
    dialog.Events().Clicked(PlaceOf(dialog, name));
}

inline User Clicks(StringView name) {
    return [name](runtime::headless::MemoryWindow& dialog) { Click(dialog, name); };
}

inline void Close(runtime::headless::MemoryWindow& dialog) {
    dialog.Events().Closing(runtime::UnloadReason::kUser);
}

inline void PressEnter(runtime::headless::MemoryWindow& dialog) {
    dialog.Press(runtime::kKeyEnter);
}

class QueryTest : public tests::HeadlessComponentTest {
 protected:
    QueryTest() { memory_.windows.MakePixelsTwips(); }

    void Queue(const User& user) {
        wasOpen_ = false;
        memory_.windows.Post([this, user] {
            wasOpen_ = true;
            user(memory_.windows.Last());
        });
    }
    /// Asks a question and runs `user` while the dialog is open.
    tests::Answer Ask(tests::Question question, const User& user) {
        Queue(user);
        const tests::Answer answer = tests::AskFor(question);
        EXPECT_TRUE(wasOpen_);
        return answer;
    }
    /// Asks a question, runs `look` while the dialog is open, and closes the dialog.
    void Look(const tests::Question& question, const User& look) {
        EXPECT_EQ(Ask(question,
                      [&look](runtime::headless::MemoryWindow& dialog) {
                          look(dialog);
                          Close(dialog);
                      }),
                  tests::kNoAnswer);
    }
    /// Returns the names of the controls that Tab reaches. The first name belongs to the control with the initial
    /// focus.
    std::vector<String> WalkOf(const tests::Question& question) {
        std::vector<String> walk;
        Look(question, [&walk](runtime::headless::MemoryWindow& dialog) {
            for (int i = 0; i < 5; ++i) {
                for (const auto& control : dialog.controls) {
                    if (control->focuses > 0) walk.push_back(control->look.name);
                    control->focuses = 0;
                }
                dialog.Events().KeyDown(runtime::kKeyTab, 0);
            }
        });
        return walk;
    }

    bool wasOpen_ = false;
};

}  // namespace dialogs
