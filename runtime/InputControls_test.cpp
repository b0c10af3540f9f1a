// Tests the properties, texts and items of text boxes, combos and lists. InputControls uses real windows in the Windows
// build, and windows in memory elsewhere. InputControlsInMemory always uses windows in memory.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <vector>

#include "runtime/Error.h"
#include "runtime/Form.h"
#include "runtime/InputControls_test.h"
#include "tests/support/ErrorOf.h"

namespace runtime {
namespace {

using tests::ErrorOf;

using InputControls = InputControlsTest;

/// Characters of all kinds, including the characters with a special meaning in a control.
const String kAnyText = u"\"quotes\" & && \t tab \u65E5\u672C\u8A9E \U0001F600 \u05E9\u05DC\u05D5\u05DD \xD800 'end' ";

TEST_F(InputControls, Text_IsReturnedUnchanged) {
    for (Control* control : {&form_.text, &form_.block, &form_.combo}) {
        for (const String& text : {kAnyText, String(u"two\r\nlines"), String(u"lone\nones\r"), String(u"a\0b", 3)}) {
            control->SetText(text);
            EXPECT_TRUE(control->Text() == text) << ToUtf8(control->Name());
        }
    }
}

TEST_F(InputControls, Items_AreReturnedUnchanged) {
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

TEST_F(InputControls, AddItems_AddsAfterTheExistingItems) {
    const std::vector<String> items = {u"B", u"", u"C"};
    for (Control* control : {&form_.combo, &form_.dropDown, &form_.list}) {
        control->AddItem(u"A");
        control->AddItems(items);
        control->AddItems({});
        EXPECT_EQ(control->ItemCount(), 4);
        control->SetListIndex(3);
        EXPECT_EQ(control->Text(), u"C");
        EXPECT_EQ(control->Item(1), u"B");
    }
}

TEST_F(InputControls, FirstLoad_SetsTheDesignValues) {
    EXPECT_EQ(form_.combo.Text(), u"Combo1");
    EXPECT_EQ(form_.text.Text(), u"");
    EXPECT_EQ(form_.list.ListIndex(), -1);
    EXPECT_EQ(form_.list.Text(), u"");
    EXPECT_EQ(form_.list.ItemCount(), 0);
}

TEST_F(InputControls, NextLoad_RestoresTheDesignValues) {
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

TEST_F(InputControls, NewText_CaretIsAtTheStart) {
    form_.text.SetText(u"abcdef");
    form_.text.SetSelStart(4);
    form_.text.SetText(u"xyz");
    EXPECT_EQ(form_.text.SelStart(), 0u);
    EXPECT_EQ(form_.text.SelLength(), 0u);
}

TEST_F(InputControls, InvalidListIndex_ErrorNamesControlAndRange) {
    form_.list.AddItem(u"A");
    try {
        form_.list.SetListIndex(4);
        FAIL() << "SetListIndex accepted an index outside the list";
    } catch (const Error& error) {
        EXPECT_EQ(error.Description(),
                  u"Invalid property value: ListIndex of " + form_.list.Name() + u" must be -1 to 0, not 4");
    }
}

TEST_F(InputControls, ListIndex_IsCheckedAndSelectsTheItem) {
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

TEST_F(InputControls, ItemOutsideTheList_IsError381) {
    Fill(form_.list);
    EXPECT_EQ(form_.list.Item(0), u"Alpha");
    EXPECT_EQ(ErrorOf([&] { form_.list.Item(4); }), kInvalidPropertyIndex);
    EXPECT_EQ(ErrorOf([&] { form_.list.Item(-1); }), kInvalidPropertyIndex);
}

TEST_F(InputControls, ClearItems_RemovesItemsSelectionAndText) {
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

TEST_F(InputControls, SetTextOnACombo_SelectsNoItem) {
    Fill(form_.combo);
    form_.combo.SetListIndex(1);
    form_.combo.SetText(u"Beta");
    EXPECT_EQ(form_.combo.ListIndex(), -1);
    EXPECT_EQ(form_.combo.Text(), u"Beta");
}

TEST_F(InputControls, SetTextOnAList_SelectsTheItem) {
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

TEST_F(InputControls, DropDownControls_KeepTheirOwnHeight) {
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

TEST_F(InputControls, OtherControls_HaveTheGivenBounds) {
    form_.text.SetBounds({15, 60, 1500, 315});
    form_.text.SetTop(3000);
    form_.text.SetHeight(400);
    EXPECT_EQ(form_.text.Bounds(), (Rect{15, 3000, 1500, 400}));
    form_.list.SetHeight(841);
    EXPECT_EQ(form_.list.Height(), 841);
}

TEST_F(InputControls, FirstFocus_IsTheFirstVisibleControlInTabOrder) {
    form_.text.SetVisible(false);
    form_.combo.SetVisible(false);
    form_.dropDown.SetTabIndex(3);
    form_.SetVisible(true);
    EXPECT_EQ(form_.FocusedControl(), &form_.block);
}

TEST_F(InputControls, FocusSetBeforeTheFirstShow_IsKept) {
    form_.SetFocus(form_.block);
    form_.SetVisible(true);
    EXPECT_EQ(form_.FocusedControl(), &form_.block);
}

TEST_F(InputControls, LargeTexts_AreStored) {
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

TEST_F(InputControls, ManyItems_AreStored) {
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

TEST_F(InputControlsInMemory, UserMovesFocus_LabelDoesNotGetTheFocus) {
    form_.SetVisible(true);
    headless::MemoryWindow& window = memory_.windows.Last();
    window.focused = &window.Control(u"list");
    EXPECT_EQ(form_.FocusedControl(), &form_.list);
    window.focused = &window.Control(u"label");
    EXPECT_EQ(form_.FocusedControl(), &form_.list) << "the label got the focus";
}

TEST_F(InputControlsInMemory, HideFocusedControl_FirstControlInTabOrderHasTheFocus) {
    form_.SetVisible(true);
    headless::MemoryWindow& window = memory_.windows.Last();
    window.focused = &window.Control(u"list");
    form_.list.SetVisible(false);
    EXPECT_EQ(form_.FocusedControl(), &form_.text);
    EXPECT_EQ(window.focused, &window.Control(u"text"));
}

TEST_F(InputControlsInMemory, SameFontIsSetAgain_WindowDoesNotGetIt) {
    form_.text.SetFont({.size = 20});
    headless::MemoryControl& window = memory_.windows.Last().Control(u"text");
    window.font.size = 5;
    form_.text.SetFont({.size = 20});
    EXPECT_EQ(window.font.size, 5);
}

TEST_F(InputControlsInMemory, AccessibleName_ReachesTheWindow) {
    form_.list.SetAccessibleName(u"Choose one");
    EXPECT_EQ(memory_.windows.Last().Control(u"list").accessibleName, u"Choose one");
}

}  // namespace
}  // namespace runtime
