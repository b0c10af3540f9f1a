// Tests the suite's message box as a user operates it with keys and clicks. Also tests ways to close the box, and
// nested boxes.
#include <gtest/gtest.h>

#include <thread>

#include "runtime/Error.h"
#include "runtime/LoadedForms.h"
#include "runtime/Ports.h"
#include "runtime/Screen.h"
#include "tests/messagebox/SuiteBoxTest.h"
#include "tests/windows/Queues.h"
#include "tests/windows/ReplacedImport.h"
#include "tests/windows/WindowTexts.h"

namespace tests {
namespace {

const Steps kClose = {Do([](HWND box) { PostMessageW(box, WM_CLOSE, 0, 0); })};

class SuiteBox : public SuiteBoxTest {};

TEST_F(SuiteBox, Flags_ChooseTheFocusedButton) {
    EXPECT_EQ(Ask(8, {FocusIsOn(L"&Yes"), Keys({VK_RETURN})}), 6);
    EXPECT_EQ(Ask(8 + 0x100, {FocusIsOn(L"&No"), Keys({VK_RETURN})}), 7);
    EXPECT_EQ(Ask(8 + 0x200, {FocusIsOn(L"Yes &To All"), Keys({VK_RETURN})}), 8);
    EXPECT_EQ(Ask(8 + 0x300, {FocusIsOn(L"Cancel"), Keys({VK_RETURN})}), 2);
    ExpectNothingIsLeft();
}

TEST_F(SuiteBox, Tab_MovesTheFocusInACircle) {
    EXPECT_EQ(Ask(8 + 0x100, {FocusIsOn(L"&No"), Keys({VK_TAB}), FocusIsOn(L"Yes &To All"), Keys({VK_TAB}),
                              FocusIsOn(L"Cancel"), Keys({VK_TAB}), FocusIsOn(L"&Yes"), Keys({VK_TAB}),
                              FocusIsOn(L"&No"), Keys({VK_SHIFT, VK_TAB}), FocusIsOn(L"&Yes"), Keys({VK_RETURN})}),
              6);
    ExpectNothingIsLeft();
}

TEST_F(SuiteBox, Click_ReturnsTheButtonsAnswer) {
    EXPECT_EQ(Ask(8, {ClickOn(L"&Yes")}), 6);
    EXPECT_EQ(Ask(8, {ClickOn(L"&No")}), 7);
    EXPECT_EQ(Ask(8, {ClickOn(L"Yes &To All")}), 8);
    EXPECT_EQ(Ask(8, {ClickOn(L"Cancel")}), 2);
    ExpectNothingIsLeft();
}

TEST_F(SuiteBox, EscapeOrClosing_Cancels) {
    const auto closeFromMenu = [](HWND box) { PostMessageW(box, WM_SYSCOMMAND, SC_CLOSE, 0); };
    EXPECT_EQ(Ask(8, {Keys({VK_ESCAPE})}), 2);
    EXPECT_EQ(Ask(8 + 0x100, {Keys({VK_ESCAPE})}), 2);
    EXPECT_EQ(Ask(8, {Do(closeFromMenu)}), 2);
    EXPECT_EQ(Ask(8, {Keys({VK_MENU, VK_F4})}), 2);
    ExpectNothingIsLeft();
}

TEST_F(SuiteBox, PlainLetter_PressesTheMarkedButton) {
    EXPECT_EQ(Ask(8 + 0x300, {Keys({'Y'})}), 6);
    ExpectNothingIsLeft();
    EXPECT_EQ(Ask(8 + 0x300, {Keys({'N'})}), 7);
    EXPECT_EQ(Ask(8 + 0x300, {Keys({'T'})}), 8);
    ExpectNothingIsLeft();
}

TEST_F(SuiteBox, LetterWithAltOrShift_PressesTheMarkedButton) {
    EXPECT_EQ(Ask(8, {Keys({VK_MENU, 'N'})}), 7);
    EXPECT_EQ(Ask(8, {Keys({VK_SHIFT, 'T'})}), 8);
    ExpectNothingIsLeft();
}

runtime::String TextInClipboard() {
    if (!OpenClipboard(nullptr)) return u"(in use)";
    const HANDLE data = GetClipboardData(CF_UNICODETEXT);
    const auto* text = data ? static_cast<const wchar_t*>(GlobalLock(data)) : nullptr;
    const runtime::String copied = text ? runtime::win32::ToString(text) : u"(no text)";
    if (text) GlobalUnlock(data);
    CloseClipboard();
    return copied;
}

TEST_F(SuiteBox, CtrlC_CopiesTheTextAsTheSystemsBoxDoes) {
    const auto hasCopied = [](HWND) { return TextInClipboard().find(u"\u65E5?\r\n") != runtime::String::npos; };
    EXPECT_EQ(Ask(8, {FocusIsOn(L"&Yes"), Keys({VK_CONTROL, 'C'}), hasCopied, Keys({VK_RETURN})}, u"A\u65E5?"), 6);
    const runtime::String line = runtime::String(27, u'-') + u"\r\n";
    EXPECT_EQ(TextInClipboard(),
              line + u"Title\r\n" + line + u"A\u65E5?\r\n" + line + u"Yes   No   Yes To All   Cancel   \r\n" + line);
    ExpectNothingIsLeft();
}

// If the clipboard were opened without a window, the system would empty the clipboard and then refuse the text.
TEST_F(SuiteBox, NoWindowIsActive_ClipboardKeepsItsText) {
    runtime::WindowsPort& windows = runtime::CurrentPorts().windows;
    ASSERT_TRUE(windows.CopyToClipboard(u"R1"));
    bool isCopied = true;
    std::thread([&] { isCopied = windows.CopyToClipboard(u"R2"); }).join();
    EXPECT_FALSE(isCopied);
    EXPECT_EQ(TextInClipboard(), u"R1");
}

std::vector<UINT> sounds;

BOOL WINAPI NoteSound(UINT sound) {
    sounds.push_back(sound);
    return TRUE;
}

TEST_F(SuiteBox, Question_PlaysTheSystemsSound) {
    sounds.clear();
    const ReplacedImport beep("MessageBeep", NoteSound);
    Ask(8, kEnter);
    EXPECT_EQ(sounds, std::vector<UINT>{MB_ICONQUESTION});
}

TEST_F(SuiteBox, UnmarkedCharacter_IsIgnored) {
    EXPECT_EQ(Ask(8 + 0x100, {Keys({'X'}), FocusIsOn(L"&No"), Keys({'5'}), Keys({VK_ADD}), Keys({VK_BACK}),
                              FocusIsOn(L"&No"), Keys({VK_TAB}), FocusIsOn(L"Yes &To All"), Keys({VK_RETURN})}),
              8);
    ExpectNothingIsLeft();
}

TEST_F(SuiteBox, Owner_IsEnabledJustBeforeTheBoxCloses) {
    Ask(8, {Do([this](HWND box) {
                EXPECT_FALSE(IsWindowEnabled(owner_));
                EXPECT_EQ(GetWindow(box, GW_OWNER), owner_);
                EXPECT_EQ(GetActiveWindow(), box);
            }),
            Keys({VK_RETURN})});
    EXPECT_EQ(log_, (std::vector<std::string>{"disabled without a box", "enabled with a box", "activated"}));
    ExpectNothingIsLeft();
}

TEST_F(SuiteBox, BusyPointer_IsRestored) {
    const HCURSOR busy = LoadCursorW(nullptr, IDC_WAIT);
    runtime::SetMousePointer(runtime::kHourglassPointer);
    EXPECT_EQ(GetCursor(), busy);
    Ask(8, {Do([busy](HWND) { EXPECT_NE(GetCursor(), busy); }), Keys({VK_RETURN})});
    EXPECT_EQ(runtime::MousePointer(), runtime::kHourglassPointer);
    EXPECT_EQ(GetCursor(), busy);
    runtime::SetMousePointer(runtime::kDefaultPointer);
}

TEST_F(SuiteBox, BoxDestroyedByAnotherProgram_Cancels) {
    EXPECT_EQ(Ask(8, {Do([](HWND box) { DestroyWindow(box); })}), 2);
    ExpectNothingIsLeft();
    EXPECT_EQ(Ask(8, kEnter), 6);
}

TEST_F(SuiteBox, QuitMessage_CancelsAndReachesTheOuterLoop) {
    EXPECT_EQ(Ask(8, {Do([](HWND) { PostQuitMessage(5); })}), 2);
    EXPECT_EQ(TakeQuit(), 5);
    ExpectNothingIsLeft();
}

TEST_F(SuiteBox, HandlerFails_CallerGetsTheError) {
    class FailingBox : public dialogs::frmQMXMsgBox {
        void OnClick(runtime::Control&) override { throw runtime::Error(runtime::kOverflow); }
    } box;
    for (const auto& press : {Keys({VK_RETURN}), Keys({'N'}), ClickOn(L"Cancel")}) {
        const DialogDriver driver({press});
        EXPECT_THROW(box.ShowMe(u"Overwrite?", 8, u"Title"), runtime::Error);
        ExpectNothingIsLeft();
    }
}

TEST_F(SuiteBox, NestedBoxes_HaveTheirOwnAnswers) {
    std::int32_t inner = 0;
    HWND outerBox = nullptr;
    const auto askInner = Do([&](HWND box) {
        outerBox = box;
        inner = dialogs::AskWithSuiteBox(u"Inner", 8 + 0x100, u"Inner title");
        EXPECT_EQ(GetActiveWindow(), box);
        EXPECT_TRUE(IsWindowEnabled(box));
        EXPECT_FALSE(IsWindowEnabled(owner_));
    });
    const auto seeInner = Do([&](HWND box) {
        EXPECT_NE(box, outerBox);
        EXPECT_FALSE(IsWindowEnabled(outerBox));
        EXPECT_EQ(GetWindow(box, GW_OWNER), outerBox);
        EXPECT_EQ(TextOf(LabelOf(outerBox)), u"Overwrite?");
        EXPECT_EQ(TextOf(box), u"Inner title");
    });
    const std::int32_t outer = Ask(8 + 0x200, {FocusIsOn(L"Yes &To All"), askInner, seeInner, FocusIsOn(L"&No"),
                                               Keys({VK_RETURN}), FocusIsOn(L"Yes &To All"), Keys({VK_RETURN})});
    EXPECT_EQ(inner, 7);
    EXPECT_EQ(outer, 8);
    ExpectNothingIsLeft();
}

TEST_F(SuiteBox, OuterBoxUnloaded_CancelsTheInnerBox) {
    std::int32_t inner = 0;
    const auto askInner = Do([&](HWND) { inner = dialogs::AskWithSuiteBox(u"Inner", 8, u""); });
    const auto unloadOuter = Do([](HWND) { runtime::LoadedForms().At(0).Unload(); });
    EXPECT_EQ(Ask(8, {askInner, unloadOuter}), 2);
    EXPECT_EQ(inner, 2);
    ExpectNothingIsLeft();
}

TEST_F(SuiteBox, NoActiveWindow_BoxIsShown) {
    ShowWindow(owner_, SW_HIDE);
    EXPECT_EQ(Ask(8, kClose), 2);
    EXPECT_EQ(runtime::LoadedForms().Count(), 0u);
}

}  // namespace
}  // namespace tests
