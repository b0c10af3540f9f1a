// Fixture for the suite's message box. The box is a real window above a real owner, and the fixture records when
// the owner is enabled, disabled or activated. Most steps use the keyboard and the mouse through the system's input
// queue, as a user does.
#pragma once

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "dialogs/frmQMXMsgBox.h"
#include "tests/support/ComponentFixture.h"
#include "tests/windows/AboveOwner.h"
#include "tests/windows/DialogSteps.h"

namespace tests {

/// Presses Enter, which clicks the focused button.
inline const Steps kEnter = {Keys({VK_RETURN})};

/// A box that a test changes in the load handler, as the localisation does.
class ChangedBox : public dialogs::frmQMXMsgBox {
 public:
    explicit ChangedBox(std::function<void(ChangedBox&)> change) : change_(std::move(change)) {}

    std::int32_t Ask(std::int32_t flags, Steps steps) {
        const DialogDriver driver(std::move(steps));
        return ShowMe(u"Overwrite?", flags, u"Title");
    }
    void Caption(std::size_t button, runtime::StringView caption) { Controls().at(button + 2)->SetText(caption); }

 private:
    void OnLoad() override {
        change_(*this);
        frmQMXMsgBox::OnLoad();
    }

    std::function<void(ChangedBox&)> change_;
};

class SuiteBoxTest : public AboveOwner<ComponentTest> {
 protected:
    ~SuiteBoxTest() override;

    /// Shows the box, runs `steps` and returns the answer.
    std::int32_t Ask(std::int32_t flags, Steps steps, runtime::StringView prompt = u"Overwrite?");
    /// Shows the box and answers Yes at once, without the driver's timer.
    std::int32_t AskQuickly();
    void OnOwnerMessage(UINT message, WPARAM wParam) override;

    std::vector<std::string> log_;  ///< such as "disabled without a box", "activated"
    /// Actions when the owner is disabled, enabled or activated.
    std::function<void()> onDisabled_, onEnabled_, onActivated_;
};

}  // namespace tests
