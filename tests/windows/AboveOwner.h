// A fixture with an owner window in front, above which dialogs open, and with what must be so again when they are gone.
#pragma once

#include <gtest/gtest.h>

#include "tests/windows/OwnerWindow.h"

namespace tests {

/// Fails the test unless `owner` takes input and is the active window, no form is left, and no key or menu hangs.
void ExpectNothingIsLeft(HWND owner);
/// Clicks a button of the innermost dialog, without the mouse.
void PressInDialog(const wchar_t* caption);

/// Base is a fixture of tests/support/, or testing::Test.
template <typename Base>
class AboveOwner : public Base {
    static constexpr UINT kPress = WM_APP;
    OwnerWindow window_{[this](UINT message, WPARAM wParam, LPARAM lParam) {
        if (message == kPress) PressInDialog(reinterpret_cast<const wchar_t*>(lParam));
        OnOwnerMessage(message, wParam);
    }};

 protected:
    void SetUp() override { ASSERT_EQ(GetActiveWindow(), owner_); }

    void ExpectNothingIsLeft() const { tests::ExpectNothingIsLeft(owner_); }
    /// Has the button clicked as soon as the next dialog waits for input, without a driver and its timer. The caption
    /// is not copied.
    void PressSoon(const wchar_t* caption) { PostMessageW(owner_, kPress, 0, reinterpret_cast<LPARAM>(caption)); }
    /// What happens to the owner; must not throw.
    virtual void OnOwnerMessage(UINT /*message*/, WPARAM /*wParam*/) {}

    const HWND owner_ = window_.Handle();
};

}  // namespace tests
