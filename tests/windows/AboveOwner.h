// A fixture with an active owner window for dialogs. ExpectNothingIsLeft checks that the owner is in its initial state
// after the dialogs.
#pragma once

#include <gtest/gtest.h>

#include "tests/windows/OwnerWindow.h"

namespace tests {

/// Fails the test unless `owner` is enabled and active, no dialog is shown, no form is loaded, Alt is released, and no
/// menu is open.
void ExpectNothingIsLeft(HWND owner);
/// Posts a click to a button of the innermost dialog, without the mouse.
void PressInDialog(const wchar_t* caption);

/// `Base` is a fixture of tests/support/, or testing::Test.
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
    /// Clicks the button as soon as the next dialog waits for input. No driver and no timer is necessary. The string
    /// must outlive the dialog.
    void PressSoon(const wchar_t* caption) { PostMessageW(owner_, kPress, 0, reinterpret_cast<LPARAM>(caption)); }
    /// Called for each message of the owner. An override must not throw.
    virtual void OnOwnerMessage(UINT /*message*/, WPARAM /*wParam*/) {}

    const HWND owner_ = window_.Handle();
};

}  // namespace tests
