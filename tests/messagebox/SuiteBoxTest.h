// The suite's own message box in a real window above a real owner, which notes what happens to it. The steps of a test
// use the keyboard and the mouse as the user does, through the system's input queue.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "dialogs/frmQMXMsgBox.h"
#include "tests/messagebox/BoxDriver.h"
#include "tests/support/RuntimeFixture.h"

namespace tests {

using Steps = std::vector<BoxDriver::Step>;

/// A button of the suite's box by its caption with its '&'; null when there is none.
HWND ButtonOf(HWND box, const wchar_t* caption);
HWND LabelOf(HWND box);

/// Presses and releases the keys, the last one released first: {VK_MENU, VK_F4} is Alt+F4.
BoxDriver::Step Keys(std::vector<WORD> keys);
/// What the keyboard's repetition of a held key becomes.
BoxDriver::Step Repeated(WORD key);
/// A character that comes to the focused window without a key, as an input method sends it.
BoxDriver::Step Character(wchar_t character);
/// Presses the mouse button over a button of the box.
BoxDriver::Step ClickOn(const wchar_t* caption);
/// Waits until the button has the focus in the active box.
BoxDriver::Step FocusIsOn(const wchar_t* caption);
/// Does something with the box once.
BoxDriver::Step Do(std::function<void(HWND box)> action);

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
