// The query dialog in a real window above a real owner. The steps of a test use the keyboard and the mouse as the user
// does, through the system's input queue.
#pragma once

#include "tests/messagebox/BoxSteps.h"
#include "tests/support/ComponentFixture.h"
#include "tests/support/Question.h"

namespace tests {

/// The visible control of the dialog that takes the value; null when there is none.
HWND InputOf(HWND dialog);
/// Text of a control, asked for by message, so that an edit control's content counts.
runtime::String ContentOf(HWND control);

/// Waits until the control that takes the value has the focus in the active dialog.
BoxDriver::Step FocusIsOnInput();

class QueryTest : public ComponentTest {
 protected:
    QueryTest();
    ~QueryTest() override;
    void SetUp() override;

    /// The answer, given by `steps`.
    static Answer Ask(Question question, Steps steps);
    /// Asks and accepts at once, without the driver's timer.
    Answer AskQuickly(Question question);
    /// The owner takes input and is the active window, and no form is left.
    void ExpectNothingIsLeft() const;

    HWND owner_ = nullptr;

 private:
    static LRESULT CALLBACK OwnerProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) noexcept;
};

}  // namespace tests
