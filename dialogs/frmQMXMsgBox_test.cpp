// Runs the suite's message box in memory. A character is 90 twips wide and a line is 195 twips high. A pixel is one
// twip, so that bounds are not rounded.
#include "dialogs/frmQMXMsgBox.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>

#include "runtime/Error.h"
#include "runtime/LoadedForms.h"
#include "runtime/Screen.h"
#include "tests/support/ComponentFixture.h"
#include "tests/support/ErrorOf.h"
#include "tests/support/HandledForm.h"

namespace dialogs {
namespace {

using runtime::headless::MemoryControl;
using runtime::headless::MemoryWindow;
using ::testing::ElementsAre;

class MessageBox : public tests::HeadlessComponentTest {
 protected:
    MessageBox() { memory_.windows.MakePixelsTwips(); }

    /// Asks a question and runs `user` while the box is open.
    std::int32_t Ask(std::int32_t flags, const std::function<void(MemoryWindow&)>& user,
                     runtime::StringView prompt = u"Overwrite?") {
        wasOpen_ = false;
        memory_.windows.Post([this, user] {
            wasOpen_ = true;
            user(memory_.windows.Last());
        });
        const std::int32_t answer = AskWithSuiteBox(prompt, flags, u"Title");
        EXPECT_TRUE(wasOpen_);
        return answer;
    }
    std::int32_t AskAndPress(std::int32_t flags, std::int16_t key) {
        return Ask(flags, [key](MemoryWindow& box) { box.Events().KeyDown(key, 0); });
    }
    static MemoryControl& Button(MemoryWindow& box, std::size_t index) { return *box.controls.at(index + 2); }

    /// Returns the buttons that Tab reaches. The first button has the initial focus.
    std::vector<int> WalkOf(std::int32_t flags) {
        std::vector<int> walk;
        Ask(flags, [&](MemoryWindow& box) {
            for (int i = 0; i < 5; ++i) {
                for (int button = 0; button < 4; ++button) {
                    if (Button(box, static_cast<std::size_t>(button)).focuses > 0) walk.push_back(button);
                    Button(box, static_cast<std::size_t>(button)).focuses = 0;
                }
                box.Events().KeyDown(runtime::kKeyTab, 0);
            }
            box.Events().Closing(runtime::UnloadReason::kUser);
        });
        return walk;
    }

    bool wasOpen_ = false;
};

TEST_F(MessageBox, CentresAnotherFormWithoutLoadingTheBox) {
    tests::HandledForm other;
    frmQMXMsgBox box;
    box.SetForm(other);
    const runtime::Size screen = runtime::ScreenSize();
    EXPECT_EQ(other.Left(), OnPixels((screen.width - other.Width()) / 2.0F));
    EXPECT_EQ(other.Top(), OnPixels((screen.height - other.Height()) / 2.0F));
    EXPECT_FALSE(box.IsLoaded());
}

TEST_F(MessageBox, Loaded_HasTheDesignValues) {
    Ask(8, [](MemoryWindow& box) {
        EXPECT_EQ(box.InnerSize(), (runtime::Size{5085, 1425}));
        EXPECT_EQ(box.border, runtime::BorderStyle::kFixedDialog);
        EXPECT_EQ(box.caption, u"Title");
        EXPECT_EQ(box.Control(u"Image1").bounds, (runtime::Rect{180, 180, 480, 480}));
        EXPECT_EQ(box.Control(u"Image1").look.picture, u"QUESTION");
        EXPECT_EQ(box.Control(u"lblPrompt").bounds, (runtime::Rect{945, 240, 3700, 390}));
        EXPECT_EQ(box.Control(u"lblPrompt").text, u"Overwrite?");
        EXPECT_EQ(Button(box, 0).text, u"&Yes");
        EXPECT_EQ(Button(box, 1).text, u"&No");
        EXPECT_EQ(Button(box, 2).text, u"Yes &To All");
        EXPECT_EQ(Button(box, 3).text, u"Cancel");
        EXPECT_EQ(Button(box, 0).bounds, (runtime::Rect{180, 915, 1125, 345}));
        EXPECT_EQ(Button(box, 3).bounds, (runtime::Rect{3825, 915, 1125, 345}));
        box.Events().Closing(runtime::UnloadReason::kUser);
    });
}

TEST_F(MessageBox, ClickReturnsTheButtonsCode) {
    const auto click = [this](std::size_t button) {
        return Ask(8, [button](MemoryWindow& box) { box.Events().Clicked(button + 2); });
    };
    EXPECT_EQ(click(0), 6);
    EXPECT_EQ(click(1), 7);
    EXPECT_EQ(click(2), 8);
    EXPECT_EQ(click(3), 2);
}

TEST_F(MessageBox, EnterPressesTheDefaultButtonOfTheFlags) {
    EXPECT_EQ(AskAndPress(8, runtime::kKeyEnter), 6);
    EXPECT_EQ(AskAndPress(8 + 0x100, runtime::kKeyEnter), 7);
    EXPECT_EQ(AskAndPress(8 + 0x200, runtime::kKeyEnter), 8);
    EXPECT_EQ(AskAndPress(8 + 0x300, runtime::kKeyEnter), 2);
}

TEST_F(MessageBox, OtherFlagsAreIgnored) {
    EXPECT_EQ(AskAndPress(8 + 48 + 4 + 0x1000, runtime::kKeyEnter), 6);
    EXPECT_EQ(AskAndPress(-1, runtime::kKeyEnter), 2);
}

TEST_F(MessageBox, TabOrderStartsAtTheDefaultButtonOfTheFlags) {
    EXPECT_THAT(WalkOf(8), ElementsAre(0, 1, 2, 3, 0));
    EXPECT_THAT(WalkOf(8 + 0x100), ElementsAre(1, 2, 3, 0, 1));
    EXPECT_THAT(WalkOf(8 + 0x200), ElementsAre(2, 3, 0, 1, 2));
    EXPECT_THAT(WalkOf(8 + 0x300), ElementsAre(3, 0, 1, 2, 3));
}

TEST_F(MessageBox, EscapeIsCancelWithAnyFocus) {
    EXPECT_EQ(AskAndPress(8, runtime::kKeyEscape), 2);
    EXPECT_EQ(AskAndPress(8 + 0x200, runtime::kKeyEscape), 2);
}

TEST_F(MessageBox, PlainLettersPressTheMarkedButton) {
    const auto type = [this](char16_t letter) {
        return Ask(8, [letter](MemoryWindow& box) { EXPECT_FALSE(box.Events().KeyPress(letter)); });
    };
    EXPECT_EQ(type(u'y'), 6);
    EXPECT_EQ(type(u'n'), 7);
    EXPECT_EQ(type(u't'), 8);
    EXPECT_EQ(type(u'T'), 8);
    EXPECT_EQ(memory_.windows.altKeys, u"yntT");
}

// The system's message box uses the same format, including the three blanks behind each button.
TEST_F(MessageBox, CtrlC_CopiesTitlePromptAndButtons) {
    const std::string line = "---------------------------\r\n";
    Ask(
        8,
        [](MemoryWindow& box) {
            box.Press(runtime::kKeyC, runtime::kCtrl);
            EXPECT_TRUE(box.visible);
            box.Events().Closing(runtime::UnloadReason::kUser);
        },
        u"R&D\r\nOverwrite?");
    EXPECT_EQ(runtime::ToUtf8(memory_.windows.clipboard), line + "Title\r\n" + line + "R&D\r\nOverwrite?\r\n" + line +
                                                              "Yes   No   Yes To All   Cancel   \r\n" + line);
    EXPECT_EQ(memory_.windows.altKeys, u"");
}

TEST_F(MessageBox, ClipboardInUseOrOtherKeys_NothingIsCopied) {
    memory_.windows.isClipboardInUse = true;
    EXPECT_EQ(Ask(8,
                  [this](MemoryWindow& box) {
                      box.Press(runtime::kKeyC, runtime::kCtrl);
                      memory_.windows.isClipboardInUse = false;
                      box.Press(runtime::kKeyC);
                      box.Press(runtime::kKeyC, runtime::kCtrl | runtime::kAlt);
                      box.Press(runtime::kKeyC, runtime::kCtrl | runtime::kShift);
                      box.Press(runtime::kKeyEnter);
                  }),
              6);
    EXPECT_EQ(memory_.windows.clipboard, u"");
}

TEST_F(MessageBox, Question_PlaysTheSoundOnce) {
    Ask(8 + 0x100, [this](MemoryWindow& box) {
        EXPECT_EQ(memory_.windows.questionSounds, 1);
        box.Press(runtime::kKeyEnter);
    });
    EXPECT_EQ(memory_.windows.questionSounds, 1);
}

TEST_F(MessageBox, CharacterOfNoButton_IsResentAndDoesNothing) {
    const auto answer = Ask(8, [this](MemoryWindow& box) {
        for (const char16_t character : {u'x', u'%', u'{', u'\u3042'}) box.Events().KeyPress(character);
        memory_.windows.Post([&box] { box.Events().KeyDown(runtime::kKeyEnter, 0); });
    });
    EXPECT_EQ(answer, 6);
    EXPECT_EQ(memory_.windows.altKeys, u"x%{\u3042");
}

TEST_F(MessageBox, ResendingFails_ErrorIsIgnoredAndTheBoxStaysOpen) {
    memory_.windows.failsAltKeys = true;
    const auto answer = Ask(8 + 0x100, [](MemoryWindow& box) {
        EXPECT_EQ(tests::ErrorOf([&box] { box.Events().KeyPress(u'y'); }), 0);
        EXPECT_TRUE(box.visible);
        box.Events().KeyDown(runtime::kKeyEnter, 0);
    });
    EXPECT_EQ(answer, 7);
}

TEST_F(MessageBox, BlanksAndControlCharactersAreNotResent) {
    const auto answer = Ask(8, [this](MemoryWindow& box) {
        for (const char16_t character : runtime::StringView(u"5 \b(\t\r\x1B\x7F~")) {
            EXPECT_FALSE(box.Events().KeyPress(character));
        }
        memory_.windows.Post([&box] { box.Events().KeyDown(runtime::kKeyEnter, 0); });
    });
    EXPECT_EQ(answer, 6);
    EXPECT_EQ(memory_.windows.altKeys, u"5(~");
}

TEST_F(MessageBox, ClosedAfterAnEarlierAnswer_IsCancel) {
    EXPECT_EQ(AskAndPress(8, runtime::kKeyEnter), 6);
    EXPECT_EQ(Ask(8, [](MemoryWindow& box) { box.Events().Closing(runtime::UnloadReason::kUser); }), 2);
}

TEST_F(MessageBox, UnloadedByOtherCode_IsCancel) {
    EXPECT_EQ(Ask(8, [](MemoryWindow&) { runtime::LoadedForms().At(0).Unload(); }), 2);
    EXPECT_EQ(runtime::LoadedForms().Count(), 0u);
}

TEST_F(MessageBox, RequestToQuitIsCancelAndStaysPending) {
    EXPECT_EQ(Ask(8, [this](MemoryWindow&) { memory_.windows.Quit(); }), 2);
    EXPECT_TRUE(memory_.windows.quitting);
    EXPECT_EQ(runtime::LoadedForms().Count(), 0u);
}

TEST_F(MessageBox, WidePromptWidensTheFormAndShiftsTheButtonsByHalf) {
    // 51 characters are 4590 wide, 890 more than the label's 3700. Half of 890 is 445.
    const runtime::String prompt(51, u'm');
    Ask(
        8,
        [](MemoryWindow& box) {
            EXPECT_EQ(box.Control(u"lblPrompt").bounds, (runtime::Rect{945, 240, 4590, 390}));
            EXPECT_EQ(box.InnerSize(), (runtime::Size{5085 + 890, 1425}));
            EXPECT_EQ(Button(box, 0).bounds, (runtime::Rect{180 + 445, 915, 1125, 345}));
            EXPECT_EQ(Button(box, 3).bounds, (runtime::Rect{3825 + 445, 915, 1125, 345}));
            EXPECT_EQ(box.Control(u"Image1").bounds, (runtime::Rect{180, 180, 480, 480}));
            box.Events().Closing(runtime::UnloadReason::kUser);
        },
        prompt);
}

TEST_F(MessageBox, OddGrowth_ButtonsMoveByTheUnroundedHalf) {
    // At 1 point a character is 11 twips wide. 343 characters are 3773 wide, 73 more than the label's 3700.
    class OnePointFontBox : public frmQMXMsgBox {
        void OnLoad() override {
            runtime::Control& prompt = *Controls().at(1);
            const runtime::Rect design = prompt.Bounds();
            prompt.SetFont({.size = 1});
            prompt.SetBounds(design);
        }
    } box;
    memory_.windows.Post([this] {
        EXPECT_EQ(Button(memory_.windows.Last(), 0).bounds.left, 180 + 36.5F);
        memory_.windows.Last().Events().KeyDown(runtime::kKeyEscape, 0);
    });
    box.ShowMe(runtime::String(343, u'm'), 0, u"");
}

/// Implements windows in memory. Every text has the same size, which may contain fractions of twips.
class FixedTextSize : public runtime::headless::MemoryWindows {
 public:
    explicit FixedTextSize(runtime::Size size) : size_(size) { MakePixelsTwips(); }
    runtime::Size TextSize(runtime::StringView, const runtime::Font&, runtime::Twips) override { return size_; }

 private:
    runtime::Size size_;
};

TEST_F(MessageBox, PromptGrowsByHalfTwips_GrowthIsRoundedToEven) {
    // The label is 3700 by 390. The first text needs 1.5 twips more in both directions, and the second text 2.5 twips
    // more. The form grows by 2 twips in both cases.
    for (const runtime::Size text : {runtime::Size{3701.5F, 391.5F}, {3702.5F, 392.5F}}) {
        FixedTextSize windows(text);
        const runtime::Ports ports = tests::WithPort(ports_, windows);
        runtime::UsePorts(&ports);
        windows.Post([&windows, text] {
            MemoryWindow& box = windows.Last();
            EXPECT_EQ(box.Control(u"lblPrompt").bounds, (runtime::Rect{945, 240, text.width, text.height}));
            EXPECT_EQ(box.InnerSize(), (runtime::Size{5085 + 2, 1425 + 2}));
            EXPECT_EQ(Button(box, 0).bounds, (runtime::Rect{180 + 1, 915 + 2, 1125, 345}));
            box.Events().KeyDown(runtime::kKeyEscape, 0);
        });
        EXPECT_EQ(AskWithSuiteBox(u"Overwrite?", 8, u"Title"), 2);
        runtime::UsePorts(&ports_);
    }
}

TEST_F(MessageBox, PromptOfManyLines_ButtonsMoveDown) {
    // Ten lines are 1950 high, 1560 more than the label's 390.
    Ask(
        8,
        [](MemoryWindow& box) {
            EXPECT_EQ(box.Control(u"lblPrompt").bounds, (runtime::Rect{945, 240, 3700, 1950}));
            EXPECT_EQ(box.InnerSize(), (runtime::Size{5085, 1425 + 1560}));
            EXPECT_EQ(Button(box, 2).bounds, (runtime::Rect{2610, 915 + 1560, 1125, 345}));
            box.Events().Closing(runtime::UnloadReason::kUser);
        },
        u"1\r\n2\r\n3\r\n4\r\n5\r\n6\r\n7\r\n8\r\n9\r\n10");
}

TEST_F(MessageBox, Shown_IsCentredWithoutClamping) {
    memory_.windows.screen = {3001, 900};
    Ask(8, [](MemoryWindow& box) {
        // The outer size is 5085 + 90 by 1425 + 375.
        EXPECT_EQ(box.outer, (runtime::Rect{(3001 - 5175) / 2.0F, (900 - 1800) / 2.0F, 5175, 1800}));
        box.Events().Closing(runtime::UnloadReason::kUser);
    });
}

TEST_F(MessageBox, EachQuestionStartsFromTheDesign) {
    Ask(
        8 + 0x300, [](MemoryWindow& box) { box.Events().Closing(runtime::UnloadReason::kUser); },
        runtime::String(60, u'm'));
    Ask(8, [](MemoryWindow& box) {
        EXPECT_EQ(box.InnerSize(), (runtime::Size{5085, 1425}));
        box.Events().Closing(runtime::UnloadReason::kUser);
    });
    EXPECT_THAT(WalkOf(8), ElementsAre(0, 1, 2, 3, 0));
}

TEST_F(MessageBox, BusyPointerIsRestored) {
    runtime::SetMousePointer(runtime::kHourglassPointer);
    Ask(8, [](MemoryWindow& box) {
        EXPECT_EQ(runtime::MousePointer(), runtime::kDefaultPointer);
        box.Events().Closing(runtime::UnloadReason::kUser);
    });
    EXPECT_EQ(runtime::MousePointer(), runtime::kHourglassPointer);
}

TEST_F(MessageBox, BusyPointerIsRestoredBeforeTheUnload) {
    struct WatchedBox : frmQMXMsgBox {
        void OnUnload(bool&) override { pointers.push_back(runtime::MousePointer()); }
        std::vector<std::int16_t> pointers;
    } box;
    runtime::SetMousePointer(runtime::kHourglassPointer);
    memory_.windows.Post([this] { memory_.windows.Last().Events().Clicked(2); });
    EXPECT_EQ(box.ShowMe(u"Overwrite?", 8, u"Title"), 6);
    EXPECT_THAT(box.pointers, ElementsAre(runtime::kHourglassPointer));
}

TEST_F(MessageBox, OtherWindowsAreDisabledUntilTheBoxCloses) {
    runtime::Form owner({.name = u"owner", .caption = u"", .inner = {3000, 1500}});
    owner.SetVisible(true);
    MemoryWindow& ownerWindow = memory_.windows.Last();
    Ask(8, [&](MemoryWindow& box) {
        EXPECT_FALSE(ownerWindow.enabled);
        EXPECT_TRUE(box.enabled);
        box.Events().Clicked(2);
        EXPECT_TRUE(ownerWindow.enabled);
    });
    EXPECT_TRUE(ownerWindow.enabled);
}

TEST_F(MessageBox, HandlerFails_CallerReceivesErrorAndBoxCloses) {
    runtime::SetMousePointer(runtime::kHourglassPointer);
    const auto failing = [](MemoryWindow&) { throw runtime::Error(runtime::kOverflow); };
    EXPECT_EQ(tests::ErrorOf([&] { Ask(8, failing); }), runtime::kOverflow);
    EXPECT_EQ(runtime::LoadedForms().Count(), 0u);
    EXPECT_EQ(runtime::MousePointer(), runtime::kHourglassPointer);
}

TEST_F(MessageBox, QuestionInsideAQuestion_HasASeparateAnswer) {
    std::int32_t inner = 0;
    const std::int32_t outer = Ask(8, [&](MemoryWindow& outerBox) {
        inner = AskAndPress(8 + 0x100, runtime::kKeyEnter);
        EXPECT_EQ(outerBox.Control(u"lblPrompt").text, u"Overwrite?");
        outerBox.Events().Clicked(4);
    });
    EXPECT_EQ(inner, 7);
    EXPECT_EQ(outer, 8);
}

TEST_F(MessageBox, OpenBox_RefusesAnotherQuestion) {
    frmQMXMsgBox box;
    memory_.windows.Post([&] {
        EXPECT_EQ(tests::ErrorOf([&] { box.ShowMe(u"again", 0, u"again"); }), runtime::kFormAlreadyDisplayed);
        EXPECT_EQ(box.Caption(), u"Title");
        memory_.windows.Last().Events().Clicked(2);
    });
    EXPECT_EQ(box.ShowMe(u"first", 8, u"Title"), 6);
}

TEST_F(MessageBox, QuestionAfterAnUnload_DoesNotAnswerTheOuterQuestion) {
    std::int32_t inner = 0;
    const std::int32_t outer = Ask(8, [&](MemoryWindow&) {
        runtime::LoadedForms().At(0).Unload();
        inner = AskAndPress(8, runtime::kKeyEnter);
    });
    EXPECT_EQ(inner, 6);
    EXPECT_EQ(outer, 2);
    EXPECT_EQ(runtime::LoadedForms().Count(), 0u);
}

TEST_F(MessageBox, TranslatedCaptions_ReplaceTheAccessKeys) {
    class GermanBox : public frmQMXMsgBox {
        void OnLoad() override {
            Controls().at(2)->SetText(u"&Ja");
            Controls().at(3)->SetText(u"A & B && &\u00DC");
        }
    } box;
    const auto type = [&](char16_t letter) {
        memory_.windows.Post([this, letter] {
            memory_.windows.Last().Events().KeyPress(u'y');
            memory_.windows.Last().Events().KeyPress(u' ');
            memory_.windows.Last().Events().KeyPress(letter);
        });
        return box.ShowMe(u"p", 0x300, u"t");
    };
    EXPECT_EQ(type(u'j'), 6);
    EXPECT_EQ(type(u'\u00FC'), 7);
}

TEST_F(MessageBox, ScreenReader_GetsPromptAsDescriptionAndANameForTheIcon) {
    Ask(
        8,
        [](MemoryWindow& box) {
            EXPECT_EQ(box.accessibleDescription, u"Overwrite R1?");
            EXPECT_EQ(box.Control(u"Image1").text, u"?");
            box.Press(runtime::kKeyEnter);
        },
        u"Overwrite R1?");
}

TEST_F(MessageBox, Question_IsAskedInTheSystemsResolution) {
    Ask(8, [this](MemoryWindow& box) {
        EXPECT_EQ(memory_.windows.systemResolutions, 1);
        box.Press(runtime::kKeyEnter);
    });
    EXPECT_EQ(memory_.windows.systemResolutions, 0);
    memory_.windows.refuseWindows = 1;
    EXPECT_EQ(tests::ErrorOf([] { AskWithSuiteBox(u"", 8, u""); }), runtime::kOutOfMemory);
    EXPECT_EQ(memory_.windows.systemResolutions, 0);
}

}  // namespace
}  // namespace dialogs
