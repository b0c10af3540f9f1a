// The query dialog in a real window above a real owner. The test's steps use the keyboard and the mouse through the
// system's input queue, as a user does.
#pragma once

#include "tests/support/ComponentFixture.h"
#include "tests/support/Question.h"
#include "tests/windows/AboveOwner.h"
#include "tests/windows/DialogSteps.h"

namespace tests {

/// The dialog's visible input control. Null if there is none.
HWND InputOf(HWND dialog);

/// Waits until the dialog is active and its input control has the focus.
DialogDriver::Step FocusIsOnInput();

class QueryTest : public AboveOwner<ComponentTest> {
 protected:
    /// Shows the dialog, runs `steps` and returns the answer.
    static Answer Ask(Question question, Steps steps);
    /// Shows the dialog and accepts at once, without the driver's timer.
    Answer AskQuickly(Question question);
};

}  // namespace tests
