// The suite's own message box in a real window above a real owner, which notes what happens to it. The steps of a test
// use the keyboard and the mouse as the user does, through the system's input queue.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "dialogs/frmQMXMsgBox.h"
#include "tests/messagebox/BoxSteps.h"
#include "tests/support/RuntimeFixture.h"

namespace tests {

class SuiteBoxTest : public RuntimeTest {
 protected:
    SuiteBoxTest();
    ~SuiteBoxTest() override;
    void SetUp() override;

    /// The answer, given by `steps`.
    std::int32_t Ask(std::int32_t flags, Steps steps, runtime::StringView prompt = u"Overwrite?");
    /// Asks and answers at once with Yes, without the driver's timer.
    std::int32_t AskQuickly();
    /// The owner takes input and is the active window, no form is left, and no key or menu hangs.
    void ExpectNothingIsLeft() const;

    HWND owner_ = nullptr;
    std::vector<std::string> log_;  ///< what happened to the owner
    /// What the owner does when it is told that.
    std::function<void()> onDisabled_, onEnabled_, onActivated_;

 private:
    static LRESULT CALLBACK OwnerProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) noexcept;

    static SuiteBoxTest* current_;
};

}  // namespace tests
