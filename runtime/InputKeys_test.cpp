// Tests the handling of keys by a form and its input controls. InputKeys uses real windows in the Windows build, and
// windows in memory elsewhere. InputKeysInMemory always uses windows in memory.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "runtime/Error.h"
#include "runtime/Form.h"
#include "runtime/InputControls_test.h"
#include "tests/support/ErrorOf.h"

namespace runtime {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using tests::ErrorOf;

using InputKeys = InputControlsTest;

TEST_F(InputKeys, Tab_MovesThroughTheVisibleControls) {
    form_.text.SetVisible(false);
    ShowOn(form_.combo);
    std::vector<Control*> walked;
    for (int i = 0; i < 6; ++i) {
        user_.Press(kKeyTab);
        walked.push_back(form_.FocusedControl());
    }
    EXPECT_THAT(walked,
                ElementsAre(&form_.dropDown, &form_.block, &form_.list, &form_.button, &form_.cancel, &form_.combo));
    EXPECT_EQ(form_.block.Text(), u"");
}

TEST_F(InputKeys, HiddenControl_TakesNoFocusAndIsNotPressed) {
    ShowOn(form_.text);
    form_.cancel.SetVisible(false);
    EXPECT_EQ(ErrorOf([&] { form_.SetFocus(form_.cancel); }), kInvalidProcedureCall);
    user_.Press(kKeyEscape);
    EXPECT_THAT(form_.log, ElementsAre("form 27", "text 27"));
    form_.text.SetVisible(false);
    EXPECT_EQ(form_.FocusedControl(), &form_.combo);
}

TEST_F(InputKeys, TypedCharacter_ReachesFormThenControlThenText) {
    form_.onControlKeyPress = [](Control& control, char16_t&) { EXPECT_EQ(control.Text(), u""); };
    ShowOn(form_.text);
    user_.Type(u"Q");
    EXPECT_THAT(form_.log, ElementsAre("form 81", "text 81"));
    EXPECT_EQ(form_.text.Text(), u"Q");
    EXPECT_EQ(form_.text.SelStart(), 1u);
}

TEST_F(InputKeys, ConsumedCharacter_IsNotInserted) {
    ShowOn(form_.text);
    form_.onKeyPress = [](char16_t& character) {
        if (character == u'x') character = 0;
    };
    form_.onControlKeyPress = [](Control&, char16_t& character) {
        if (character == u'y') character = 0;
    };
    user_.Type(u"xyz");
    EXPECT_THAT(form_.log, ElementsAre("form 120", "form 121", "text 121", "form 122", "text 122"));
    EXPECT_EQ(form_.text.Text(), u"z");
}

TEST_F(InputKeys, Typing_ReplacesTheSelection) {
    for (Control* control : {&form_.text, &form_.block, &form_.combo}) {
        ShowOn(*control);
        control->SetText(u"abcdef");
        control->SetSelStart(1);
        control->SetSelLength(4);
        user_.Type(u"\u65E5\u05E9");
        EXPECT_EQ(control->Text(), u"a\u65E5\u05E9f");
    }
}

TEST_F(InputKeys, LetterInATextBox_IsNoAccessKey) {
    ShowOn(form_.text);
    user_.Type(u"a");
    EXPECT_EQ(form_.text.Text(), u"a");
    EXPECT_EQ(form_.FocusedControl(), &form_.text);
}

TEST_F(InputKeys, Enter_InsertsALineOnlyInTheTextBlock) {
    ShowOn(form_.block);
    user_.Type(u"a");
    user_.Press(kKeyEnter);
    user_.Type(u"b");
    EXPECT_EQ(form_.block.Text(), u"a\r\nb");
    form_.log.clear();
    for (Control* control : {&form_.text, &form_.combo, &form_.dropDown, &form_.list}) {
        form_.SetFocus(*control);
        user_.Press(kKeyEnter);
    }
    EXPECT_THAT(form_.log, ElementsAre("form 13", "text 13", "form 13", "combo 13", "form 13", "dropDown 13", "form 13",
                                       "list 13"));
    EXPECT_EQ(form_.text.Text(), u"");
}

TEST_F(InputKeys, CtrlTab_InsertsATabIntoATextBlockOnly) {
    ShowOn(form_.block);
    form_.block.SetText(u"ab");
    form_.block.SetSelStart(1);
    user_.Press(kKeyTab, kCtrl);
    EXPECT_EQ(form_.block.Text(), u"a\tb");
    EXPECT_THAT(form_.log, ElementsAre("form 9", "block 9"));
    for (Control* control : {&form_.text, &form_.combo, &form_.dropDown, &form_.list, &form_.button}) {
        ShowOn(*control);
        user_.Press(kKeyTab, kCtrl);
        EXPECT_EQ(form_.FocusedControl(), control) << ToUtf8(control->Name());
        EXPECT_THAT(form_.log, IsEmpty()) << ToUtf8(control->Name());
    }
    EXPECT_EQ(form_.text.Text(), u"");
}

TEST_F(InputKeys, TabThatAHandlerConsumes_IsNotInserted) {
    ShowOn(form_.block);
    form_.onKeyPress = [](char16_t& character) { character = 0; };
    user_.Press(kKeyTab, kCtrl);
    EXPECT_EQ(form_.block.Text(), u"");
}

TEST_F(InputKeys, AltF4_ClosesTheFormFromEveryControl) {
    for (Control* control :
         {&form_.text, &form_.combo, &form_.dropDown, &form_.block, &form_.list, &form_.button, &form_.cancel}) {
        ShowOn(*control);
        user_.Press(kKeyF4, kAlt);
        EXPECT_FALSE(form_.IsLoaded()) << ToUtf8(control->Name());
    }
}

TEST_F(InputKeys, Escape_PressesTheCancelButtonFromEveryInputControl) {
    for (Control* control : {&form_.text, &form_.combo, &form_.dropDown, &form_.block, &form_.list}) {
        ShowOn(*control);
        user_.Press(kKeyEscape);
        EXPECT_THAT(form_.log, ElementsAre("click cancel")) << ToUtf8(control->Name());
    }
}

TEST_F(InputKeys, ArrowInAList_MovesTheSelectionAndNotTheFocus) {
    for (Control* control : {&form_.combo, &form_.dropDown, &form_.list}) {
        Fill(*control);
        ShowOn(*control);
        control->SetListIndex(0);
        user_.Press(kKeyDown);
        user_.Press(kKeyDown);
        EXPECT_EQ(control->ListIndex(), 2) << ToUtf8(control->Name());
        EXPECT_EQ(control->Text(), u"Bravo");
        user_.Press(kKeyUp);
        EXPECT_EQ(control->Text(), u"Beta");
        EXPECT_EQ(form_.FocusedControl(), control);
    }
}

TEST_F(InputKeys, FirstLetterOrHomeOrEndInAList_SelectsAnItem) {
    for (Control* control : {&form_.dropDown, &form_.list}) {
        Fill(*control);
        ShowOn(*control);
        user_.Type(u"g");
        EXPECT_EQ(control->Text(), u"Gamma") << ToUtf8(control->Name());
        user_.Press(kKeyHome);
        EXPECT_EQ(control->ListIndex(), 0);
        user_.Press(kKeyEnd);
        EXPECT_EQ(control->ListIndex(), 3);
    }
}

TEST_F(InputKeys, Backspace_RemovesTheSelectionOrOneCharacter) {
    for (Control* control : {&form_.text, &form_.block, &form_.combo}) {
        ShowOn(*control);
        control->SetText(u"abcdef");
        control->SetSelStart(1);
        control->SetSelLength(3);
        user_.Type(u"\b");
        EXPECT_EQ(control->Text(), u"aef") << ToUtf8(control->Name());
        user_.Type(u"\b\b");
        EXPECT_EQ(control->Text(), u"ef") << ToUtf8(control->Name());
    }
}

TEST_F(InputKeys, TypingInACombo_DeselectsTheItem) {
    Fill(form_.combo);
    form_.combo.SetListIndex(1);
    ShowOn(form_.combo);
    form_.combo.SetSelStart(4);
    user_.Type(u"x");
    EXPECT_EQ(form_.combo.Text(), u"Betax");
    EXPECT_EQ(form_.combo.ListIndex(), -1);
}

TEST_F(InputKeys, EscapeOnAnOpenList_ClosesTheListAndPressesNothing) {
    for (Control* control : {&form_.combo, &form_.dropDown}) {
        Fill(*control);
        control->SetListIndex(1);
        ShowOn(*control);
        user_.Press(kKeyF4);
        user_.Press(kKeyEscape);
        EXPECT_THAT(form_.log, IsEmpty()) << ToUtf8(control->Name());
        EXPECT_EQ(control->Text(), u"Beta");
        user_.Press(kKeyEscape);
        EXPECT_THAT(form_.log, ElementsAre("click cancel"));
    }
}

TEST_F(InputKeys, EscapeOnAnOpenList_RestoresTheSelectedItem) {
    for (Control* control : {&form_.combo, &form_.dropDown}) {
        Fill(*control);
        control->SetListIndex(0);
        ShowOn(*control);
        user_.Press(kKeyF4);
        user_.Press(kKeyDown);
        user_.Press(kKeyDown);
        EXPECT_EQ(control->ListIndex(), 2) << ToUtf8(control->Name());
        user_.Press(kKeyEscape);
        EXPECT_EQ(control->ListIndex(), 0) << ToUtf8(control->Name());
        EXPECT_EQ(control->Text(), u"Alpha");
        user_.Press(kKeyDown);
        EXPECT_EQ(control->ListIndex(), 1) << "the window has another item than the form";
    }
}

TEST_F(InputKeys, EscapeOnAnOpenListWithoutSelection_SelectsNoItem) {
    Fill(form_.dropDown);
    ShowOn(form_.dropDown);
    user_.Press(kKeyF4);
    user_.Press(kKeyDown);
    user_.Press(kKeyEscape);
    EXPECT_EQ(form_.dropDown.ListIndex(), -1);
    EXPECT_EQ(form_.dropDown.Text(), u"");
}

TEST_F(InputKeys, EscapeOnAnOpenList_RestoresTheTextOfACombo) {
    Fill(form_.combo);
    form_.combo.SetText(u"own");
    ShowOn(form_.combo);
    user_.Press(kKeyF4);
    user_.Press(kKeyDown);
    EXPECT_EQ(form_.combo.Text(), u"Alpha");
    user_.Press(kKeyEscape);
    EXPECT_EQ(form_.combo.Text(), u"own");
    EXPECT_EQ(form_.combo.ListIndex(), -1);
    user_.Type(u"x");
    EXPECT_EQ(form_.combo.Text(), u"x") << "the restored text was not selected";
}

TEST_F(InputKeys, EnterOnAnOpenList_SelectsBeforeTheCharacterArrives) {
    for (Control* control : {&form_.combo, &form_.dropDown}) {
        Fill(*control);
        control->SetListIndex(1);
        ShowOn(*control);
        std::vector<String> seen;
        form_.onKeyPress = [&](char16_t&) { seen.push_back(control->Text()); };
        user_.Press(kKeyF4);
        user_.Press(kKeyDown);
        user_.Press(kKeyEnter);
        EXPECT_THAT(seen, ElementsAre(u"Bravo")) << ToUtf8(control->Name());
        EXPECT_EQ(control->ListIndex(), 2);
        form_.log.clear();
        user_.Press(kKeyEscape);
        EXPECT_THAT(form_.log, ElementsAre("click cancel")) << "the list is still open";
    }
}

TEST_F(InputKeys, F4OnAnOpenList_ClosesTheListAndKeepsTheItem) {
    for (Control* control : {&form_.combo, &form_.dropDown}) {
        Fill(*control);
        control->SetListIndex(0);
        ShowOn(*control);
        user_.Press(kKeyF4);
        user_.Press(kKeyDown);
        user_.Press(kKeyF4);
        EXPECT_EQ(control->ListIndex(), 1) << ToUtf8(control->Name());
        user_.Press(kKeyEscape);
        EXPECT_THAT(form_.log, ElementsAre("click cancel")) << "the list is still open";
    }
}

TEST_F(InputKeys, HandlerMayUnloadTheForm) {
    ShowOn(form_.combo);
    form_.onKeyPress = [&](char16_t&) { form_.Unload(); };
    user_.Press(kKeyEnter);
    EXPECT_THAT(form_.log, ElementsAre("form 13"));
    EXPECT_FALSE(form_.IsLoaded());
}

class InputKeysInMemory : public tests::HeadlessTest {
 protected:
    tests::InputForm form_;
};

TEST_F(InputKeysInMemory, HeldEnter_IsACharacterOnlyInTheTextBlock) {
    form_.SetVisible(true);
    WindowEvents& events = memory_.windows.Last().Events();
    EXPECT_FALSE(events.KeyDown(kKeyEnter, 0, false));
    EXPECT_TRUE(events.KeyDown(kKeyEnter, 0, true));
    form_.SetFocus(form_.block);
    EXPECT_FALSE(events.KeyDown(kKeyEnter, 0, true));
}

TEST_F(InputKeysInMemory, EnterPressedBeforeTheShowAndHeld_InsertsNoLine) {
    for (int loads = 0; loads < 2; ++loads) {
        form_.SetVisible(true);
        form_.SetFocus(form_.block);
        WindowEvents& events = memory_.windows.Last().Events();
        EXPECT_TRUE(events.KeyDown(kKeyEnter, 0, true));
        EXPECT_FALSE(events.KeyDown(kKeyEnter, 0, false));
        EXPECT_FALSE(events.KeyDown(kKeyEnter, 0, true));
        form_.Unload();
    }
}

TEST_F(InputKeysInMemory, HeldKey_PressesNoButton) {
    form_.SetVisible(true);
    form_.SetFocus(form_.button);
    WindowEvents& events = memory_.windows.Last().Events();
    for (const std::int16_t key : {kKeyEnter, kKeySpace, kKeyEscape}) EXPECT_TRUE(events.KeyDown(key, 0, true)) << key;
    EXPECT_THAT(form_.log, IsEmpty());
    EXPECT_TRUE(events.KeyDown(kKeySpace, 0, false));
    EXPECT_THAT(form_.log, ElementsAre("click button"));
}

TEST_F(InputKeysInMemory, Arrow_MovesTheFocusFromButtonsOnly) {
    form_.SetVisible(true);
    form_.SetFocus(form_.button);
    WindowEvents& events = memory_.windows.Last().Events();
    EXPECT_TRUE(events.KeyDown(kKeyRight, 0));
    EXPECT_EQ(form_.FocusedControl(), &form_.cancel);
    EXPECT_TRUE(events.KeyDown(kKeyUp, 0));
    EXPECT_TRUE(events.KeyDown(kKeyLeft, 0));
    EXPECT_EQ(form_.FocusedControl(), &form_.list);
    for (const std::int16_t key : {kKeyLeft, kKeyRight, kKeyUp, kKeyDown}) EXPECT_FALSE(events.KeyDown(key, 0)) << key;
    EXPECT_EQ(form_.FocusedControl(), &form_.list);
}

class MirroredInputForm : public tests::InputForm {
 protected:
    bool IsRightToLeft() const override { return true; }
};

TEST_F(InputKeysInMemory, LeftAndRightInAMirroredForm_AreExchanged) {
    MirroredInputForm form;
    form.SetVisible(true);
    form.SetFocus(form.button);
    WindowEvents& events = memory_.windows.Last().Events();
    EXPECT_TRUE(events.KeyDown(kKeyLeft, 0));
    EXPECT_EQ(form.FocusedControl(), &form.cancel);
    EXPECT_TRUE(events.KeyDown(kKeyRight, 0));
    EXPECT_EQ(form.FocusedControl(), &form.button);
    EXPECT_TRUE(events.KeyDown(kKeyDown, 0));
    EXPECT_EQ(form.FocusedControl(), &form.cancel);
    EXPECT_TRUE(events.KeyDown(kKeyUp, 0));
    EXPECT_EQ(form.FocusedControl(), &form.button);
}

TEST_F(InputKeysInMemory, TabOrEscapeWithCtrlOrAlt_IsNotConsumed) {
    form_.SetVisible(true);
    WindowEvents& events = memory_.windows.Last().Events();
    for (const std::int16_t shift : {kCtrl, kAlt}) {
        EXPECT_FALSE(events.KeyDown(kKeyTab, shift)) << shift;
        EXPECT_FALSE(events.KeyDown(kKeyEscape, shift)) << shift;
    }
    EXPECT_EQ(form_.FocusedControl(), &form_.text);
    EXPECT_THAT(form_.log, IsEmpty());
}

TEST_F(InputKeysInMemory, ShiftTabWithoutFocus_FocusesTheLastControl) {
    for (const auto& control : form_.Controls()) control->SetVisible(false);
    form_.SetVisible(true);
    form_.block.SetVisible(true);
    form_.list.SetVisible(true);
    EXPECT_EQ(form_.FocusedControl(), nullptr);
    memory_.windows.Last().Press(kKeyTab, kShift);
    EXPECT_EQ(form_.FocusedControl(), &form_.list);
}

TEST(WithoutMarks, Caption_BecomesTheTextThatTheButtonShows) {
    EXPECT_EQ(WithoutMarks(u"Yes &To All"), u"Yes To All");
    EXPECT_EQ(WithoutMarks(u"R&&D &&& x"), u"R&D & x");
    EXPECT_EQ(WithoutMarks(u"\u306F\u3044(&Y)"), u"\u306F\u3044(Y)");
    EXPECT_EQ(WithoutMarks(u"end&"), u"end");
}

TEST_F(InputKeysInMemory, HiddenButton_HasNoAccessKey) {
    form_.SetVisible(true);
    WindowEvents& events = memory_.windows.Last().Events();
    form_.button.SetVisible(false);
    EXPECT_FALSE(events.AccessKey(u'a'));
    form_.button.SetVisible(true);
    EXPECT_TRUE(events.AccessKey(u'A'));
    EXPECT_THAT(form_.log, ElementsAre("click button"));
}

TEST_F(InputKeysInMemory, AccessKeyOfSeveralButtons_MovesTheFocus) {
    form_.cancel.SetText(u"C&ancel");
    form_.SetVisible(true);
    WindowEvents& events = memory_.windows.Last().Events();
    for (const Control* expected : {&form_.button, &form_.cancel, &form_.button}) {
        EXPECT_TRUE(events.AccessKey(u'a'));
        EXPECT_EQ(form_.FocusedControl(), expected);
    }
    EXPECT_THAT(form_.log, IsEmpty());
}

}  // namespace
}  // namespace runtime
