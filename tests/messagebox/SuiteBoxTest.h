// The suite's own message box in a real window above a real owner, which notes what happens to it. The steps of a test
// use the keyboard and the mouse as the user does, through the system's input queue.
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

/// Presses Enter, which answers with the focused button.
inline const Steps kEnter = {Keys({VK_RETURN})};

/// A box that its load handler changes, as the localisation does.
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

    /// The answer, given by `steps`.
    std::int32_t Ask(std::int32_t flags, Steps steps, runtime::StringView prompt = u"Overwrite?");
    /// Asks and answers at once with Yes, without the driver's timer.
    std::int32_t AskQuickly();
    void OnOwnerMessage(UINT message, WPARAM wParam) override;

    std::vector<std::string> log_;  ///< what happened to the owner
    /// What the owner does when it is told that.
    std::function<void()> onDisabled_, onEnabled_, onActivated_;
};

}  // namespace tests
