// The query dialog in a real window above a real owner. The steps of a test use the keyboard and the mouse as the user
// does, through the system's input queue.
#pragma once

#include "tests/support/ComponentFixture.h"
#include "tests/support/Question.h"
#include "tests/windows/AboveOwner.h"
#include "tests/windows/DialogSteps.h"

namespace tests {

/// The visible control of the dialog that takes the value; null when there is none.
HWND InputOf(HWND dialog);

/// Waits until the control that takes the value has the focus in the active dialog.
DialogDriver::Step FocusIsOnInput();

class QueryTest : public AboveOwner<ComponentTest> {
 protected:
    /// The answer, given by `steps`.
    static Answer Ask(Question question, Steps steps);
    /// Asks and accepts at once, without the driver's timer.
    Answer AskQuickly(Question question);
};

}  // namespace tests
