// Fixture for the query dialog. The dialog is a real window above a real owner. Most steps use the keyboard and the
// mouse through the system's input queue, as a user does.
#pragma once

#include "tests/support/ComponentFixture.h"
#include "tests/support/Question.h"
#include "tests/windows/AboveOwner.h"
#include "tests/windows/DialogSteps.h"

namespace tests {

/// Returns the dialog's visible input control, or null.
HWND InputOf(HWND dialog);

/// Waits until the dialog is active and its input control has the focus.
DialogDriver::Step FocusIsOnInput();

class QueryTest : public AboveOwner<ComponentTest> {
 protected:
    /// Shows the dialog, runs `steps` and returns the answer.
    static Answer Ask(Question question, Steps steps);
    /// Shows the dialog and accepts directly, without the driver's timer.
    Answer AskQuickly(Question question);
};

}  // namespace tests
