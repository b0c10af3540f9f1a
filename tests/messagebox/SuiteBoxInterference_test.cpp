// Tests the suite's message box while its owner, the client or another window interferes with it.
#include <gtest/gtest.h>

#include "runtime/LoadedForms.h"
#include "tests/messagebox/SuiteBoxTest.h"

namespace tests {
namespace {

class SuiteBoxInterference : public SuiteBoxTest {
 protected:
    static void UnloadTheBox() {
        if (runtime::LoadedForms().Count() > 0) runtime::LoadedForms().At(0).Unload();
    }
    void DestroyTheOwner() { DestroyWindow(owner_); }
};

const Steps kNoSteps = {};
TEST_F(SuiteBoxInterference, OwnerUnloadsTheBoxWhenDisabled_Cancels) {
    onDisabled_ = UnloadTheBox;
    EXPECT_EQ(Ask(8, kNoSteps), 2);
    ExpectNothingIsLeft();
}

TEST_F(SuiteBoxInterference, OwnerUnloadsTheBoxWhenEnabled_AnswerStays) {
    onEnabled_ = UnloadTheBox;
    EXPECT_EQ(Ask(8, kEnter), 6);
    ExpectNothingIsLeft();
}

TEST_F(SuiteBoxInterference, OwnerUnloadsTheBoxWhenActivated_AnswerStays) {
    onActivated_ = UnloadTheBox;
    EXPECT_EQ(Ask(8, kEnter), 6);
    ExpectNothingIsLeft();
}

TEST_F(SuiteBoxInterference, OwnerDisablesItselfWhenEnabled_StaysDisabled) {
    int enablings = 0;
    onEnabled_ = [&] {
        if (++enablings == 1) EnableWindow(owner_, FALSE);
    };
    EXPECT_EQ(Ask(8, kEnter), 6);
    EXPECT_FALSE(IsWindowEnabled(owner_));
    EXPECT_EQ(enablings, 1);
    EnableWindow(owner_, TRUE);
}

TEST_F(SuiteBoxInterference, OwnerDestroyedWhenDisabled_BoxStaysOpen) {
    onDisabled_ = [this] { DestroyTheOwner(); };
    EXPECT_EQ(Ask(8, kEnter), 6);
    EXPECT_EQ(runtime::LoadedForms().Count(), 0u);
}

TEST_F(SuiteBoxInterference, OwnerDestroyedWhenEnabled_AnswerStays) {
    onEnabled_ = [this] { DestroyTheOwner(); };
    EXPECT_EQ(Ask(8, kEnter), 6);
    EXPECT_EQ(runtime::LoadedForms().Count(), 0u);
}

TEST_F(SuiteBoxInterference, OwnerDestroyedWhenActivated_AnswerStays) {
    onActivated_ = [this] { DestroyTheOwner(); };
    EXPECT_EQ(Ask(8, kEnter), 6);
    EXPECT_EQ(runtime::LoadedForms().Count(), 0u);
}

TEST_F(SuiteBoxInterference, OwnerDestroyedWhileTheBoxIsOpen_Cancels) {
    EXPECT_EQ(Ask(8, {Do([this](HWND) { DestroyTheOwner(); })}), 2);
    EXPECT_EQ(runtime::LoadedForms().Count(), 0u);
}

TEST_F(SuiteBoxInterference, BoxHiddenByAnotherProgram_Cancels) {
    EXPECT_EQ(Ask(8, {Do([](HWND box) { ShowWindow(box, SW_HIDE); })}), 2);
    ExpectNothingIsLeft();
}

// The system hides owned windows when their owner is minimised, and shows them when the owner is restored.
TEST_F(SuiteBoxInterference, OwnerMinimisedAndRestored_BoxStaysOpen) {
    const auto minimiseAndRestore = Do([this](HWND box) {
        ShowOwnedPopups(owner_, FALSE);
        EXPECT_FALSE(IsWindowVisible(box));
        EXPECT_TRUE(runtime::LoadedForms().At(0).Visible());
        ShowOwnedPopups(owner_, TRUE);
        EXPECT_TRUE(IsWindowVisible(box));
        SetActiveWindow(box);
    });
    EXPECT_EQ(Ask(8 + 0x100, {minimiseAndRestore, FocusIsOn(L"&No"), Keys({VK_RETURN})}), 7);
    ExpectNothingIsLeft();
}

TEST_F(SuiteBoxInterference, ClickMessageToADisabledOuterBox_IsIgnored) {
    std::int32_t inner = 0;
    HWND outerBox = nullptr;
    const auto askInner = Do([&](HWND box) {
        outerBox = box;
        inner = dialogs::AskWithSuiteBox(u"Inner", 8, u"");
    });
    const auto clickOuter = Do([&](HWND) { SendMessageW(ButtonOf(outerBox, L"Yes &To All"), BM_CLICK, 0, 0); });
    EXPECT_EQ(Ask(8, {askInner, clickOuter, FocusIsOn(L"&Yes"), Keys({'N'}), FocusIsOn(L"&Yes"), Keys({VK_RETURN})}),
              6);
    EXPECT_EQ(inner, 7);
    ExpectNothingIsLeft();
}

TEST_F(SuiteBoxInterference, ClientShowsABusyPointer_PointerIsAnArrowWhileTheBoxIsOpen) {
    const HCURSOR busy = LoadCursorW(nullptr, IDC_WAIT);
    const HCURSOR before = SetCursor(busy);
    const auto seeArrow = Do([](HWND) { EXPECT_EQ(GetCursor(), LoadCursorW(nullptr, IDC_ARROW)); });
    EXPECT_EQ(Ask(8, {seeArrow, Keys({VK_RETURN})}), 6);
    EXPECT_EQ(GetCursor(), busy);
    EXPECT_EQ(Ask(8, {Do([](HWND) { UnloadTheBox(); })}), 2);
    EXPECT_EQ(GetCursor(), busy);
    SetCursor(before);
}

}  // namespace
}  // namespace tests
