// A test fixture with a form that has input controls, and a simulated user who types text. Its windows are real in the
// Windows build, and in memory elsewhere.
#pragma once

#include "tests/support/InputForm.h"
#include "tests/support/RuntimeFixture.h"
#include "tests/support/TypingUser.h"

namespace runtime {

class InputControlsTest : public tests::RuntimeTest {
 protected:
    /// Shows the form with the focus on `control`.
    void ShowOn(Control& control) {
        form_.SetVisible(true);
        form_.SetFocus(control);
        DoEvents();
        form_.log.clear();
    }
    static void Fill(Control& control) {
        for (const StringView item : {u"Alpha", u"Beta", u"Bravo", u"Gamma"}) control.AddItem(item);
    }

    tests::InputForm form_;
    tests::TypingUser user_{form_};
};

}  // namespace runtime
