#include "tests/messagebox/SuiteBoxTest.h"

#include <utility>

namespace tests {

SuiteBoxTest::~SuiteBoxTest() {
    onDisabled_ = onEnabled_ = onActivated_ = nullptr;
}

void SuiteBoxTest::OnOwnerMessage(UINT message, WPARAM wParam) {
    if (message == WM_ENABLE) {
        const std::string box = ShownDialog() ? " with a box" : " without a box";
        log_.push_back((wParam ? "enabled" : "disabled") + box);
        if (const auto& then = wParam ? onEnabled_ : onDisabled_) then();
    }
    if (message == WM_ACTIVATE && LOWORD(wParam) != WA_INACTIVE) {
        log_.push_back("activated");
        if (onActivated_) onActivated_();
    }
}

std::int32_t SuiteBoxTest::Ask(std::int32_t flags, Steps steps, runtime::StringView prompt) {
    const DialogDriver driver(std::move(steps));
    return dialogs::AskWithSuiteBox(prompt, flags, u"Title");
}

std::int32_t SuiteBoxTest::AskQuickly() {
    PressSoon(L"&Yes");
    return dialogs::AskWithSuiteBox(u"Overwrite?", 8, u"Title");
}

}  // namespace tests
