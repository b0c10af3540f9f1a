// Text boxes, combos and lists: their properties, and what the user's keys make of them, on the build's own window
// system.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "runtime/Error.h"
#include "runtime/Form.h"
#include "tests/support/ErrorOf.h"
#include "tests/support/InputForm.h"
#include "tests/support/RuntimeFixture.h"
#include "tests/support/TypingUser.h"

namespace runtime {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using tests::ErrorOf;

class InputControls : public tests::RuntimeTest {
 protected:
    /// Shows the form with the focus on `control`.
    void ShowOn(Control& control) {
        form_.SetVisible(true);
        form_.SetFocus(control);
        DoEvents();
        form_.log.clear();
    }
    static void Fill(Control& control) {
        for (const StringView item : {u"Alpha", u"Beta", u"Bravo", u"Gamma"}) control.AddItem(item);
    }

    tests::InputForm form_;
    tests::TypingUser user_{form_};
};

/// Characters of all kinds, with every special one of the controls.
const String kAnyText = u"\"quotes\" & && \t tab \u65E5\u672C\u8A9E \U0001F600 \u05E9\u05DC\u05D5\u05DD \xD800 'end' ";

TEST_F(InputControls, TextsComeBackAsTheyWentIn) {
    for (Control* control : {&form_.text, &form_.block, &form_.combo}) {
        for (const String& text : {kAnyText, String(u"two\r\nlines"), String(u"lone\nones\r"), String(u"a\0b", 3)}) {
            control->SetText(text);
            EXPECT_TRUE(control->Text() == text) << ToUtf8(control->Name());
        }
    }
}

TEST_F(InputControls, ItemsComeBackAsTheyWentIn) {
    for (Control* control : {&form_.combo, &form_.dropDown, &form_.list}) {
        control->AddItem(kAnyText);
        control->AddItem(u"");
        control->AddItem(StringView(u"a\0b", 3));
        EXPECT_EQ(control->ItemCount(), 3);
        EXPECT_TRUE(control->Item(0) == kAnyText);
        EXPECT_EQ(control->Item(1), u"");
        control->SetListIndex(2);
        EXPECT_TRUE(control->Text() == StringView(u"a\0b", 3));
    }
}

TEST_F(InputControls, StartWithTheirDesignValues) {
    EXPECT_EQ(form_.combo.Text(), u"Combo1");
    EXPECT_EQ(form_.text.Text(), u"");
    EXPECT_EQ(form_.list.ListIndex(), -1);
    EXPECT_EQ(form_.list.Text(), u"");
    EXPECT_EQ(form_.list.ItemCount(), 0);
}

TEST_F(InputControls, LaterLoadStartsAnew) {
    Fill(form_.combo);
    form_.combo.SetListIndex(1);
    form_.text.SetText(u"old");
    form_.text.SetVisible(false);
    form_.Unload();
    EXPECT_EQ(form_.combo.Text(), u"Combo1");
    EXPECT_EQ(form_.combo.ItemCount(), 0);
    EXPECT_EQ(form_.text.Text(), u"");
    EXPECT_TRUE(form_.text.Visible());
}

TEST_F(InputControls, SelectionStaysWithinTheText) {
    for (Control* control : {&form_.text, &form_.block, &form_.combo}) {
        control->SetText(u"abcdef");
        control->SetSelStart(2);
        control->SetSelLength(3);
        EXPECT_EQ(control->SelStart(), 2u);
        EXPECT_EQ(control->SelLength(), 3u);
        control->SetSelLength(100);
        EXPECT_EQ(control->SelLength(), 4u);
        control->SetSelStart(100);
        EXPECT_EQ(control->SelStart(), 6u);
        EXPECT_EQ(control->SelLength(), 0u);
        EXPECT_EQ(ErrorOf([&] { control->SetSelStart(-1); }), kInvalidPropertyValue);
        EXPECT_EQ(ErrorOf([&] { control->SetSelLength(-1); }), kInvalidPropertyValue);
    }
}

TEST_F(InputControls, NewTextHasNothingSelectedAtItsStart) {
    form_.text.SetText(u"abcdef");
    form_.text.SetSelStart(4);
    form_.text.SetText(u"xyz");
    EXPECT_EQ(form_.text.SelStart(), 0u);
    EXPECT_EQ(form_.text.SelLength(), 0u);
}

TEST_F(InputControls, AWrongListIndexIsNamedWithItsControl) {
    form_.list.AddItem(u"A");
    try {
        form_.list.SetListIndex(4);
        FAIL() << "taken";
    } catch (const Error& error) {
        EXPECT_EQ(error.Description(),
                  u"Invalid property value: ListIndex of " + form_.list.Name() + u" must be -1 to 0, not 4");
    }
}

TEST_F(InputControls, ListIndexIsCheckedAndSelectsTheText) {
    for (Control* control : {&form_.combo, &form_.dropDown, &form_.list}) {
        Fill(*control);
        control->SetListIndex(3);
        EXPECT_EQ(control->ListIndex(), 3);
        EXPECT_EQ(control->Text(), u"Gamma");
        EXPECT_EQ(ErrorOf([&] { control->SetListIndex(4); }), kInvalidPropertyValue);
        EXPECT_EQ(ErrorOf([&] { control->SetListIndex(-2); }), kInvalidPropertyValue);
        EXPECT_EQ(control->ListIndex(), 3);
        control->SetListIndex(-1);
        EXPECT_EQ(control->ListIndex(), -1);
        EXPECT_EQ(control->Text(), u"");
    }
}

TEST_F(InputControls, ItemOutsideTheListIsAnIndexError) {
    Fill(form_.list);
    EXPECT_EQ(form_.list.Item(0), u"Alpha");
    EXPECT_EQ(ErrorOf([&] { form_.list.Item(4); }), kInvalidPropertyIndex);
    EXPECT_EQ(ErrorOf([&] { form_.list.Item(-1); }), kInvalidPropertyIndex);
}

TEST_F(InputControls, ClearingTakesItemsSelectionAndTextAway) {
    for (Control* control : {&form_.combo, &form_.dropDown, &form_.list}) {
        Fill(*control);
        control->SetListIndex(1);
        control->ClearItems();
        EXPECT_EQ(control->ItemCount(), 0);
        EXPECT_EQ(control->ListIndex(), -1);
        EXPECT_EQ(control->Text(), u"");
        Fill(*control);
        EXPECT_EQ(control->ItemCount(), 4);
        EXPECT_EQ(control->ListIndex(), -1);
    }
}

TEST_F(InputControls, TextOfAnEditableComboIsNotOneOfItsItems) {
    Fill(form_.combo);
    form_.combo.SetListIndex(1);
    form_.combo.SetText(u"Beta");
    EXPECT_EQ(form_.combo.ListIndex(), -1);
    EXPECT_EQ(form_.combo.Text(), u"Beta");
}

TEST_F(InputControls, TextOfAListSelectsItsItem) {
    for (Control* control : {&form_.dropDown, &form_.list}) {
        Fill(*control);
        control->SetText(u"Bravo");
        EXPECT_EQ(control->ListIndex(), 2);
        EXPECT_EQ(ErrorOf([&] { control->SetText(u"bravo"); }), kPropertyIsReadOnly);
        EXPECT_EQ(control->Text(), u"Bravo");
    }
}

TEST_F(InputControls, PropertiesOfOtherKindsAreNotSupported) {
    EXPECT_EQ(ErrorOf([&] { form_.text.AddItem(u"x"); }), kPropertyNotSupported);
    EXPECT_EQ(ErrorOf([&] { form_.block.ClearItems(); }), kPropertyNotSupported);
    EXPECT_EQ(ErrorOf([&] { form_.text.ListIndex(); }), kPropertyNotSupported);
    EXPECT_EQ(ErrorOf([&] { form_.label.ItemCount(); }), kPropertyNotSupported);
    EXPECT_EQ(ErrorOf([&] { form_.list.SelStart(); }), kPropertyNotSupported);
    EXPECT_EQ(ErrorOf([&] { form_.dropDown.SetSelLength(0); }), kPropertyNotSupported);
    EXPECT_EQ(ErrorOf([&] { form_.button.SetAccessibleName(u"x"); }), kPropertyNotSupported);
    EXPECT_EQ(ErrorOf([&] { form_.label.TabStop(); }), kPropertyNotSupported);
    EXPECT_EQ(ErrorOf([&] { form_.label.SetTabStop(true); }), kPropertyNotSupported);
    EXPECT_EQ(ErrorOf([&] { form_.label.SetTabIndex(0); }), kPropertyNotSupported);
    EXPECT_EQ(ErrorOf([&] { form_.SetFocus(form_.label); }), kPropertyNotSupported);
}

TEST_F(InputControls, TabIndexBelowZeroIsRefused) {
    EXPECT_EQ(ErrorOf([&] { form_.block.SetTabIndex(-1); }), kInvalidPropertyValue);
    form_.SetVisible(true);
    EXPECT_EQ(form_.FocusedControl(), &form_.text);
}

TEST_F(InputControls, ControlsThatDropDownKeepTheirOwnHeight) {
    const Twips height = form_.combo.Height();
    EXPECT_GT(height, 0);
    form_.combo.SetBounds({75, 90, 3000, 2000});
    EXPECT_EQ(form_.combo.Bounds(), (Rect{75, 90, 3000, height}));
    form_.dropDown.SetHeight(2000);
    EXPECT_EQ(form_.dropDown.Height(), height);
    form_.combo.SetFont({.size = 20});
    EXPECT_GT(form_.combo.Height(), height);
    form_.combo.SetFont({});
    EXPECT_EQ(form_.combo.Height(), height);
}

TEST_F(InputControls, OtherControlsHaveThePlaceThatTheyAreGiven) {
    form_.text.SetTop(3000);
    form_.text.SetLeft(15);
    form_.text.SetWidth(1500);
    form_.text.SetHeight(400);
    EXPECT_EQ(form_.text.Bounds(), (Rect{15, 3000, 1500, 400}));
    form_.list.SetHeight(841);
    EXPECT_EQ(form_.list.Height(), 841);
}

TEST_F(InputControls, FirstFocusIsTheFirstVisibleOneInTabOrder) {
    form_.text.SetVisible(false);
    form_.combo.SetVisible(false);
    form_.dropDown.SetTabIndex(3);
    form_.SetVisible(true);
    EXPECT_EQ(form_.FocusedControl(), &form_.block);
}

TEST_F(InputControls, FocusGivenBeforeTheFormIsShownStays) {
    form_.SetFocus(form_.block);
    form_.SetVisible(true);
    EXPECT_EQ(form_.FocusedControl(), &form_.block);
}

TEST_F(InputControls, TabWalksTheVisibleControlsFromEveryKind) {
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

TEST_F(InputControls, HiddenControlsTakeNoFocusAndAreNotPressed) {
    ShowOn(form_.text);
    form_.cancel.SetVisible(false);
    EXPECT_EQ(ErrorOf([&] { form_.SetFocus(form_.cancel); }), kInvalidProcedureCall);
    user_.Press(kKeyEscape);
    EXPECT_THAT(form_.log, ElementsAre("form 27", "text 27"));
    form_.text.SetVisible(false);
    EXPECT_EQ(form_.FocusedControl(), &form_.combo);
}

TEST_F(InputControls, WrittenCharactersReachTheFormThenTheControlThenTheText) {
    form_.onControlKeyPress = [](Control& control, char16_t&) { EXPECT_EQ(control.Text(), u""); };
    ShowOn(form_.text);
    user_.Type(u"Q");
    EXPECT_THAT(form_.log, ElementsAre("form 81", "text 81"));
    EXPECT_EQ(form_.text.Text(), u"Q");
    EXPECT_EQ(form_.text.SelStart(), 1u);
}

TEST_F(InputControls, CharactersThatAreSwallowedAreNotWritten) {
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

TEST_F(InputControls, WritingReplacesTheSelectedPart) {
    for (Control* control : {&form_.text, &form_.block, &form_.combo}) {
        ShowOn(*control);
        control->SetText(u"abcdef");
        control->SetSelStart(1);
        control->SetSelLength(4);
        user_.Type(u"\u65E5\u05E9");
        EXPECT_EQ(control->Text(), u"a\u65E5\u05E9f");
    }
}

TEST_F(InputControls, LettersInATextAreNoAccessKeys) {
    ShowOn(form_.text);
    user_.Type(u"a");
    EXPECT_EQ(form_.text.Text(), u"a");
    EXPECT_EQ(form_.FocusedControl(), &form_.text);
}

TEST_F(InputControls, EnterIsANewLineInTheTextBlockAlone) {
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

TEST_F(InputControls, EscapePressesTheCancelButtonFromEveryKind) {
    for (Control* control : {&form_.text, &form_.combo, &form_.dropDown, &form_.block, &form_.list}) {
        ShowOn(*control);
        user_.Press(kKeyEscape);
        EXPECT_THAT(form_.log, ElementsAre("click cancel")) << ToUtf8(control->Name());
    }
}

TEST_F(InputControls, ArrowsWalkTheItemsAndNotTheFocus) {
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

TEST_F(InputControls, ListsSelectByFirstLetterAndEnds) {
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

TEST_F(InputControls, BackspaceTakesTheSelectedPartOrTheCharacterBeforeIt) {
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

TEST_F(InputControls, WritingInAComboDeselectsItsItem) {
    Fill(form_.combo);
    form_.combo.SetListIndex(1);
    ShowOn(form_.combo);
    form_.combo.SetSelStart(4);
    user_.Type(u"x");
    EXPECT_EQ(form_.combo.Text(), u"Betax");
    EXPECT_EQ(form_.combo.ListIndex(), -1);
}

TEST_F(InputControls, EscapeTakesAnOpenListAwayAndPressesNothing) {
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

TEST_F(InputControls, EscapeOnAnOpenListPutsBackWhatWasThereBefore) {
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

TEST_F(InputControls, EscapeOnAnOpenListPutsBackThatNothingWasSelected) {
    Fill(form_.dropDown);
    ShowOn(form_.dropDown);
    user_.Press(kKeyF4);
    user_.Press(kKeyDown);
    user_.Press(kKeyEscape);
    EXPECT_EQ(form_.dropDown.ListIndex(), -1);
    EXPECT_EQ(form_.dropDown.Text(), u"");
}

TEST_F(InputControls, EscapeOnAnOpenListPutsBackTheTextOfACombo) {
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
    EXPECT_EQ(form_.combo.Text(), u"x") << "all of it was selected";
}

TEST_F(InputControls, EnterOnAnOpenListChoosesBeforeItIsACharacter) {
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

TEST_F(InputControls, F4TakesAnOpenListAwayAndKeepsWhatItShows) {
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

TEST_F(InputControls, HandlerMayUnloadTheForm) {
    ShowOn(form_.combo);
    form_.onKeyPress = [&](char16_t&) { form_.Unload(); };
    user_.Press(kKeyEnter);
    EXPECT_THAT(form_.log, ElementsAre("form 13"));
    EXPECT_FALSE(form_.IsLoaded());
}

TEST_F(InputControls, LargeTextsAreHeld) {
    String lines;
    while (lines.size() < 1'000'000) lines += u"words & \u65E5\u672C\u8A9E \U0001F600\r\n";
    form_.block.SetText(lines);
    EXPECT_TRUE(form_.block.Text() == lines);
    ShowOn(form_.block);
    form_.block.SetSelStart(static_cast<std::ptrdiff_t>(lines.size()));
    user_.Type(u"x");
    EXPECT_TRUE(form_.block.Text() == lines + u"x");
    const String line(1'000'000, u'a');
    form_.text.SetText(line);
    form_.text.SetSelStart(1'000'000);
    EXPECT_EQ(form_.text.SelStart(), 1'000'000u);
    EXPECT_TRUE(form_.text.Text() == line);
}

TEST_F(InputControls, ManyItemsAreHeld) {
    for (Control* control : {&form_.combo, &form_.dropDown, &form_.list}) {
        for (int i = 0; i < 10'000; ++i) control->AddItem(u"item");
        EXPECT_EQ(control->ItemCount(), 10'000);
        control->SetListIndex(9'999);
        EXPECT_EQ(control->Text(), u"item");
    }
}

class InputControlsInMemory : public tests::HeadlessTest {
 protected:
    tests::InputForm form_;
};

TEST_F(InputControlsInMemory, HeldEnterIsNoCharacterOutsideTheTextBlock) {
    form_.SetVisible(true);
    WindowEvents& events = memory_.windows.Last().Events();
    EXPECT_FALSE(events.KeyDown(kKeyEnter, 0, false));
    EXPECT_TRUE(events.KeyDown(kKeyEnter, 0, true));
    form_.SetFocus(form_.block);
    EXPECT_FALSE(events.KeyDown(kKeyEnter, 0, true));
}

TEST_F(InputControlsInMemory, EnterHeldSinceBeforeTheFormWasShownWritesNoLine) {
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

TEST_F(InputControlsInMemory, HeldKeysPressNoButton) {
    form_.SetVisible(true);
    form_.SetFocus(form_.button);
    WindowEvents& events = memory_.windows.Last().Events();
    for (const std::int16_t key : {kKeyEnter, kKeySpace, kKeyEscape}) EXPECT_TRUE(events.KeyDown(key, 0, true)) << key;
    EXPECT_THAT(form_.log, IsEmpty());
    EXPECT_TRUE(events.KeyDown(kKeySpace, 0, false));
    EXPECT_THAT(form_.log, ElementsAre("click button"));
}

TEST_F(InputControlsInMemory, ArrowsWalkTheFocusFromButtonsOnly) {
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

TEST_F(InputControlsInMemory, KeysTogetherWithControlOrAltAreTheSystems) {
    form_.SetVisible(true);
    WindowEvents& events = memory_.windows.Last().Events();
    for (const std::int16_t shift : {kCtrl, kAlt}) {
        EXPECT_FALSE(events.KeyDown(kKeyTab, shift)) << shift;
        EXPECT_FALSE(events.KeyDown(kKeyEscape, shift)) << shift;
    }
    EXPECT_EQ(form_.FocusedControl(), &form_.text);
    EXPECT_THAT(form_.log, IsEmpty());
}

TEST_F(InputControlsInMemory, BackwardsFromNoFocusIsTheLastControl) {
    for (const auto& control : form_.Controls()) control->SetVisible(false);
    form_.SetVisible(true);
    form_.block.SetVisible(true);
    form_.list.SetVisible(true);
    EXPECT_EQ(form_.FocusedControl(), nullptr);
    memory_.windows.Last().Press(kKeyTab, kShift);
    EXPECT_EQ(form_.FocusedControl(), &form_.list);
}

TEST_F(InputControlsInMemory, ClickIntoAControlGivesItTheFocusIfItTakesIt) {
    form_.SetVisible(true);
    WindowEvents& events = memory_.windows.Last().Events();
    events.Focused(4);
    EXPECT_EQ(form_.FocusedControl(), &form_.list);
    events.Focused(7);
    EXPECT_EQ(form_.FocusedControl(), &form_.list) << "a label takes none";
}

TEST_F(InputControlsInMemory, HiddenButtonHasNoAccessKey) {
    form_.SetVisible(true);
    WindowEvents& events = memory_.windows.Last().Events();
    form_.button.SetVisible(false);
    EXPECT_FALSE(events.AccessKey(u'a'));
    form_.button.SetVisible(true);
    EXPECT_TRUE(events.AccessKey(u'A'));
    EXPECT_THAT(form_.log, ElementsAre("click button"));
}

TEST_F(InputControlsInMemory, AccessKeyOfSeveralButtonsWalksAmongThem) {
    form_.cancel.SetText(u"C&ancel");
    form_.SetVisible(true);
    WindowEvents& events = memory_.windows.Last().Events();
    for (const Control* expected : {&form_.button, &form_.cancel, &form_.button}) {
        EXPECT_TRUE(events.AccessKey(u'a'));
        EXPECT_EQ(form_.FocusedControl(), expected);
    }
    EXPECT_THAT(form_.log, IsEmpty());
}

TEST_F(InputControlsInMemory, FontThatIsThereAlreadyIsNotSetAgain) {
    form_.text.SetFont({.size = 20});
    headless::MemoryControl& window = memory_.windows.Last().Control(u"text");
    window.font.size = 5;
    form_.text.SetFont({.size = 20});
    EXPECT_EQ(window.font.size, 5);
}

TEST_F(InputControlsInMemory, NamesForScreenReadersAreToldToTheWindow) {
    form_.list.SetAccessibleName(u"Choose one");
    EXPECT_EQ(memory_.windows.Last().Control(u"list").accessibleName, u"Choose one");
}

}  // namespace
}  // namespace runtime
