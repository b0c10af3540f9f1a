// Tests the driver. When the time limit has passed, the driver ends the wait and fails the test.
#include "tests/windows/DialogDriver.h"

#include <gtest/gtest-spi.h>
#include <gtest/gtest.h>

#include "tests/windows/Queues.h"

namespace tests {
namespace {

constexpr ULONGLONG kShortWait = 50;  // milliseconds

/// Dispatches messages until a quit message arrives. Returns false if no quit message arrives within ten seconds.
bool LoopUntilQuit() {
    const UINT_PTR limit = SetTimer(nullptr, 0, 10'000, nullptr);
    MSG message{};
    while (GetMessageW(&message, nullptr, 0, 0) > 0) {
        if (message.message == WM_TIMER && message.wParam == limit) break;
        DispatchMessageW(&message);
    }
    KillTimer(nullptr, limit);
    return message.message == WM_QUIT;
}

TEST(DialogDriver, TimeUpWithoutADialog_EndsTheLoop) {
    bool hasQuit = false;
    const auto wait = [&hasQuit] {
        const DialogDriver driver({}, kShortWait);
        hasQuit = LoopUntilQuit();
    };
    EXPECT_NONFATAL_FAILURE(wait(), "without a dialog");
    EXPECT_TRUE(hasQuit);
    EXPECT_EQ(TakeQuit(), std::nullopt);
}

TEST(DialogDriver, TimeUpWithADialog_ClosesTheDialog) {
    int answer = 0;
    const auto wait = [&answer] {
        const DialogDriver driver({}, kShortWait);
        answer = MessageBoxW(nullptr, L"Prompt", L"Title", MB_OKCANCEL);
    };
    EXPECT_NONFATAL_FAILURE(wait(), "a dialog is still open");
    EXPECT_EQ(answer, 99);
}

}  // namespace
}  // namespace tests
