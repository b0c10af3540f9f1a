// Tests how the suite's message box sends a character again together with Alt. If an ASCII character has a key, alone
// or with Shift, the box sends key strokes. It posts the character instead if another program is in the foreground, or
// if Caps Lock or a held key would change the character.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <optional>
#include <sstream>
#include <string>
#include <vector>

#include "runtime/Ports.h"
#include "tests/messagebox/SuiteBoxTest.h"
#include "tests/windows/Queues.h"
#include "tests/windows/ReplacedImport.h"

namespace tests {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// Records the keys and characters that the thread receives together with Alt: "key 59", "character 79". The codes are
/// hexadecimal.
class AltLog {
 public:
    AltLog() : hook_(SetWindowsHookExW(WH_GETMESSAGE, Record, nullptr, GetCurrentThreadId())) { lines.clear(); }
    AltLog(const AltLog&) = delete;
    AltLog& operator=(const AltLog&) = delete;
    ~AltLog() { UnhookWindowsHookEx(hook_); }

    static inline std::vector<std::string> lines;

 private:
    static LRESULT CALLBACK Record(int code, WPARAM wParam, LPARAM lParam) noexcept {
        const MSG& message = *reinterpret_cast<const MSG*>(lParam);
        const bool isKey = message.message == WM_SYSKEYDOWN && message.wParam != VK_MENU;
        const bool isCharacter = message.message == WM_SYSCHAR;
        if (code == HC_ACTION && wParam == PM_REMOVE && (isKey || isCharacter)) {
            std::ostringstream line;
            line << (isKey ? "key " : "character ") << std::hex << message.wParam;
            lines.push_back(line.str());
        }
        return CallNextHookEx(nullptr, code, wParam, lParam);
    }

    HHOOK hook_;
};

class SuiteBoxResending : public SuiteBoxTest {
 protected:
    /// Posts the character to the focused window. This works even if another window is in the foreground.
    static DialogDriver::Step Posted(wchar_t character) {
        return Do([character](HWND) { PostMessageW(GetFocus(), WM_CHAR, character, 1); });
    }

    AltLog log_;
};

TEST_F(SuiteBoxResending, Letter_IsResentAsAKey) {
    EXPECT_EQ(Ask(8 + 0x300, {FocusIsOn(L"Cancel"), Character(L'y')}), 6);
    EXPECT_THAT(AltLog::lines, Contains("key 59"));
    ExpectNothingIsLeft();
}

TEST_F(SuiteBoxResending, DigitOrSign_PressesTheButtonThatMarksTheCharacter) {
    ChangedBox box([](ChangedBox& changed) {
        changed.Caption(0, u"&5");
        changed.Caption(1, u"&-");
    });
    EXPECT_EQ(box.Ask(8 + 0x300, {FocusIsOn(L"Cancel"), Keys({'5'})}), 6);
    EXPECT_THAT(AltLog::lines, Contains("key 35"));
    EXPECT_EQ(box.Ask(8 + 0x300, {FocusIsOn(L"Cancel"), Keys({VK_OEM_MINUS})}), 7);
    EXPECT_THAT(AltLog::lines, Contains("key bd"));
    ExpectNothingIsLeft();
}

TEST_F(SuiteBoxResending, BlankOrControlCharacter_IsNotResent) {
    Steps steps = {FocusIsOn(L"&No")};
    for (const wchar_t character : {L'\x01', L'\b', L'\t', L'\r', L'\x1B', L' ', L'\x7F'}) {
        steps.push_back(Character(character));
    }
    steps.insert(steps.end(),
                 {FocusIsOn(L"&No"), Do([](HWND) { EXPECT_THAT(AltLog::lines, IsEmpty()); }), Keys({VK_RETURN})});
    EXPECT_EQ(Ask(8 + 0x100, steps), 7);
    ExpectNothingIsLeft();
}

/// On this keyboard, the at-sign is on Q with AltGr. The system sees AltGr as Control and Alt.
SHORT WINAPI GermanKeyFor(wchar_t character) noexcept {
    return character == L'@' ? MAKEWORD('Q', 2 | 4) : static_cast<SHORT>(-1);
}

TEST_F(SuiteBoxResending, CharacterNeedsAltGr_IsPostedAsACharacter) {
    const ReplacedImport german("VkKeyScanW", GermanKeyFor);
    ChangedBox box([](ChangedBox& changed) {
        changed.Caption(0, u"&@");
        changed.Caption(1, u"&Q");
    });
    EXPECT_EQ(box.Ask(8 + 0x300, {FocusIsOn(L"Cancel"), Character(L'@')}), 6);
    EXPECT_THAT(AltLog::lines, ElementsAre("character 40"));
    ExpectNothingIsLeft();
}

/// A box whose captions mark signs as access keys. On many keyboards, '+' shares a key with '=', and '~' shares a key
/// with '`'.
class SignedBox : public ChangedBox {
 public:
    SignedBox()
        : ChangedBox([](ChangedBox& changed) {
              changed.Caption(0, u"p &= q");
              changed.Caption(1, u"n &+");
              changed.Caption(2, u"t &~");
          }) {}

    std::int32_t AnswerTo(wchar_t sign) { return Ask(8 + 0x300, {FocusIsOn(L"Cancel"), Character(sign)}); }
    std::int32_t AnswerToWhile(WORD key, wchar_t sign) {
        std::optional<HeldKey> held;
        // A process may see the state of the keyboard up to 50 ms late under Wine. The step waits until this process
        // sees the key.
        const DialogDriver::Step hold = [&](HWND) {
            if (!held) held.emplace(key);
            return GetAsyncKeyState(key) < 0;
        };
        return Ask(8 + 0x300, {FocusIsOn(L"Cancel"), Do(WaitForDisplay), hold, Character(sign)});
    }

 private:
    /// After a window gets the focus, Wine receives the state of the keyboard from the display. That state does not
    /// include keys that a program holds down. When the display has returned a pixel, Wine has received the state.
    static void WaitForDisplay(HWND) {
        const HDC screen = GetDC(nullptr);
        GetPixel(screen, 0, 0);
        ReleaseDC(nullptr, screen);
    }
};

TEST_F(SuiteBoxResending, SignNeedsShift_IsSentWithShift) {
    SignedBox box;
    EXPECT_EQ(box.AnswerTo(L'='), 6);
    EXPECT_EQ(box.AnswerTo(L'+'), 7);
    EXPECT_EQ(box.AnswerTo(L'~'), 8);
    EXPECT_THAT(AltLog::lines, ElementsAre("key bb", "character 3d", "key 10", "key bb", "character 2b", "key 10",
                                           "key c0", "character 7e"));
    ExpectNothingIsLeft();
}

/// Records the key strokes that the program sends: "down 10", "up 10". The codes are hexadecimal.
class SentKeys {
 public:
    SentKeys() { lines.clear(); }

    static inline std::vector<std::string> lines;

 private:
    static UINT WINAPI Record(UINT count, LPINPUT inputs, int size) noexcept {
        for (UINT i = 0; i < count; ++i) {
            std::ostringstream line;
            line << ((inputs[i].ki.dwFlags & KEYEVENTF_KEYUP) != 0 ? "up " : "down ") << std::hex << inputs[i].ki.wVk;
            lines.push_back(line.str());
        }
        const auto send = reinterpret_cast<decltype(&SendInput)>(
            reinterpret_cast<void*>(GetProcAddress(GetModuleHandleW(L"user32.dll"), "SendInput")));
        return send(count, inputs, size);
    }

    const ReplacedImport replaced_{"SendInput", Record};
};

TEST_F(SuiteBoxResending, SignNeedsShift_EachKeyIsReleased) {
    SignedBox box;
    const SentKeys sent;
    EXPECT_EQ(box.AnswerTo(L'+'), 7);
    EXPECT_THAT(SentKeys::lines, ElementsAre("down 12", "down 10", "down bb", "up bb", "up 10", "up 12"));
    ExpectNothingIsLeft();
}

TEST_F(SuiteBoxResending, ShiftOrControlIsHeld_SignPressesItsButton) {
    SignedBox box;
    for (const WORD key : {VK_SHIFT, VK_CONTROL}) {
        EXPECT_EQ(box.AnswerToWhile(key, L'='), 6) << key;
        EXPECT_EQ(box.AnswerToWhile(key, L'+'), 7) << key;
        ExpectNothingIsLeft();
    }
}

/// Presses Caps Lock. Returns false if Caps Lock is not in the state `isOn` afterwards.
bool SwitchCapsLock(bool isOn) {
    SendKeys({VK_CAPITAL});
    runtime::DoEvents();
    return (GetKeyState(VK_CAPITAL) & 1) == (isOn ? 1 : 0);
}

// On some keyboards, Caps Lock changes the signs that the keys produce.
TEST_F(SuiteBoxResending, CapsLockIsOn_SignIsPostedAsACharacter) {
    SignedBox box;
    ASSERT_TRUE(SwitchCapsLock(true));
    EXPECT_EQ(box.AnswerTo(L'+'), 7);
    EXPECT_THAT(AltLog::lines, ElementsAre("character 2b"));
    EXPECT_TRUE(SwitchCapsLock(false));
    ExpectNothingIsLeft();
}

HWND WINAPI AnotherProgramsWindow() noexcept {
    return GetDesktopWindow();
}

TEST_F(SuiteBoxResending, AnotherProgramIsInTheForeground_CharacterIsPosted) {
    const auto askBehindIt = [this] {
        const ReplacedImport other("GetForegroundWindow", AnotherProgramsWindow);
        return Ask(8 + 0x300, {Posted(L'y')});
    };
    EXPECT_EQ(askBehindIt(), 6);
    EXPECT_THAT(AltLog::lines, ElementsAre("character 79"));
    ExpectNothingIsLeft();
}

}  // namespace
}  // namespace tests
