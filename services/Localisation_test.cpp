// Tests the localisation of forms and controls, and the centring of forms.
#include "services/Localisation.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <new>
#include <string>
#include <utility>
#include <variant>
#include <vector>

#include "runtime/Form.h"
#include "runtime/LateBound.h"
#include "services/ProcessValues.h"
#include "tests/support/ComponentFixture.h"
#include "tests/support/InputForm.h"
#include "tests/support/ReaderInUse.h"
#include "tests/support/RecordingReader.h"

namespace services {
namespace {

using runtime::Control;
using runtime::ControlKind;
using runtime::Font;
using runtime::PropertyValue;
using runtime::headless::MemoryWindow;
using ::testing::ElementsAre;
using ::testing::Pair;

/// An object that records each access and returns the result that the test has set.
class RecordingObject : public runtime::Properties {
 public:
    runtime::AccessError Put(StringView name, const PropertyValue& value) override {
        return Record(runtime::ToUtf8(name) + " = " + Words(value));
    }
    runtime::AccessError Get(StringView name, PropertyValue& value) override {
        value = name == u"Tag" ? tag : u"&Yes";
        return Record(runtime::ToUtf8(name) + "?");
    }
    runtime::AccessError PutOfFont(StringView fontProperty, StringView name, const PropertyValue& value) override {
        return Record(runtime::ToUtf8(fontProperty) + "." + runtime::ToUtf8(name) + " = " + Words(value));
    }

    String tag = u"39171";
    runtime::AccessError answer = runtime::kNoError;
    bool throwsAtEach = false;
    std::vector<std::string> log;

 private:
    static std::string Words(const PropertyValue& value) {
        if (const auto* const text = std::get_if<String>(&value)) return runtime::ToUtf8(*text);
        if (const auto* const number = std::get_if<std::int16_t>(&value)) return std::to_string(*number);
        if (const auto* const font = std::get_if<Font>(&value)) return "a font " + runtime::ToUtf8(font->name);
        return std::get<bool>(value) ? "on" : "off";
    }
    runtime::AccessError Record(std::string access) {
        log.push_back(std::move(access));
        if (throwsAtEach) throw std::bad_alloc();
        return answer;
    }
};

class ControlLocalisation : public tests::HeadlessComponentTest {
 protected:
    ControlLocalisation() {
        Values().uiFont = {u"Arial", 9, 161};
        memory_.files.AddFile(u"C:\\de\\K4TBackProcess.txt", "39171 = &Ja\n");
        kernel_.Put(u"LANGUAGEPATH", u"C:\\de");
    }
    const std::vector<std::string>& Accesses() {
        LocaliseControl(object_, Font{u"Tahoma", 9, 161, false});
        return object_.log;
    }

    RecordingObject object_;
    const std::vector<std::string> fontAccesses_ = {
        "FontName = Arial",          "Font.Name = Arial",    "HeadFont.Name = Arial",
        "ControlFont.Name = Arial",  "Font = a font Tahoma", "TabStop = off",
        "HeadFont = a font Tahoma",  "Charset = 161",        "Font.Charset = 161",
        "ControlFont.Charset = 161", "FontBold = off",       "Bold = off"};
};

TEST_F(ControlLocalisation, SetsThePropertiesInAFixedOrder) {
    std::vector<std::string> expected = fontAccesses_;
    expected.insert(expected.end(), {"Tag?", "Caption?", "Caption = &Ja"});
    EXPECT_EQ(Accesses(), expected);
}

TEST_F(ControlLocalisation, PropertyRefused_NextPropertyIsTried) {
    object_.answer = runtime::kPropertyNotSupported;
    std::vector<std::string> expected = fontAccesses_;
    expected.emplace_back("Tag?");
    EXPECT_EQ(Accesses(), expected);
}

TEST_F(ControlLocalisation, AccessThrows_NextPropertyIsTried) {
    object_.throwsAtEach = true;
    std::vector<std::string> expected = fontAccesses_;
    expected.emplace_back("Tag?");
    EXPECT_EQ(Accesses(), expected);
}

TEST_F(ControlLocalisation, NoTag_CaptionIsUnchanged) {
    object_.tag = u"";
    std::vector<std::string> expected = fontAccesses_;
    expected.emplace_back("Tag?");
    EXPECT_EQ(Accesses(), expected);
}

/// A form with several kinds of control. All controls except the last button have a tag.
class TaggedForm : public runtime::Form {
 public:
    explicit TaggedForm(runtime::Colour backColour = runtime::kLightGrey)
        : Form({.name = u"tagged",
                .caption = u"Title",
                .tag = u"561",
                .left = 300,
                .top = 300,
                .inner = {6000, 3000},
                .backColour = backColour}) {
        label = &AddControl({.kind = ControlKind::kLabel, .name = u"label", .text = u"Name", .tag = u"1"});
        picture = &AddControl({.kind = ControlKind::kPicture, .name = u"picture", .tag = u"2"});
        bar = &AddControl({.kind = ControlKind::kStatusBar, .name = u"bar", .text = u"Ready", .tag = u"3"});
        yes = &AddControl(
            {.kind = ControlKind::kButton, .name = u"yes", .text = u"&Yes", .tag = u"39171", .tabIndex = 0});
        plain = &AddControl({.kind = ControlKind::kButton, .name = u"plain", .text = u"Plain", .tabIndex = 1});
    }
    Control* label;
    Control* picture;
    Control* bar;
    Control* yes;
    Control* plain;
};

class FormLocalisation : public tests::HeadlessComponentTest {
 protected:
    FormLocalisation() { Values().uiFont = {u"Arial", 9, 161}; }

    void SetLanguageFolder(StringView folder) { kernel_.Put(u"LANGUAGEPATH", folder); }
    void UseLanguage(StringView folder, std::string_view texts) {
        memory_.files.AddFile(String(folder) + u"\\K4TBackProcess.txt", texts);
        SetLanguageFolder(folder);
    }
    MemoryWindow& Window() const { return memory_.windows.Last(); }

    TaggedForm form_;
};

TEST_F(FormLocalisation, CaptionsAreTranslated) {
    UseLanguage(u"C:\\de", "561 = Titel\n1 = Name:\n39171 = &Ja\n2 = Bild\n3 = Bereit\n");
    LocaliseForm(form_);
    EXPECT_EQ(form_.Caption(), u"Titel");
    EXPECT_EQ(Window().Control(u"label").text, u"Name:");
    EXPECT_EQ(Window().Control(u"yes").text, u"&Ja");
    EXPECT_EQ(Window().Control(u"plain").text, u"Plain");
    // A status bar and a picture have no caption.
    EXPECT_EQ(Window().Control(u"bar").text, u"Ready");
    EXPECT_EQ(Window().Control(u"picture").text, u"");
}

TEST_F(FormLocalisation, TextsAreLookedUpInTheOrderOfTheControls) {
    tests::RecordingReader recording(reader_);
    const tests::ReaderInUse inUse(recording);
    form_.yes->SetText(u"&Sure");
    LocaliseForm(form_);
    EXPECT_THAT(recording.Asked(), ElementsAre(Pair(u"Title", u"561"), Pair(u"Name", u"1"), Pair(u"&Sure", u"39171")));
}

TEST_F(FormLocalisation, NextLanguageLacksAText_EarlierCaptionIsKept) {
    UseLanguage(u"C:\\de", "561 = Titel\n39171 = &Ja\n1 = Name:\n");
    LocaliseForm(form_);
    UseLanguage(u"C:\\fr", "39171 = &Oui\n");
    LocaliseForm(form_);
    EXPECT_EQ(form_.Caption(), u"Titel");
    EXPECT_EQ(form_.label->Text(), u"Name:");
    EXPECT_EQ(form_.yes->Text(), u"&Oui");
    SetLanguageFolder(u"");
    LocaliseForm(form_);
    EXPECT_EQ(form_.Caption(), u"Titel");
    EXPECT_EQ(form_.yes->Text(), u"&Oui");
}

TEST_F(FormLocalisation, OnlyLightGreyForm_GetsTheButtonColour) {
    LocaliseForm(form_);
    EXPECT_EQ(Window().backColour, 0x8000000Fu);
    TaggedForm nearly(0x00C0C0C1);
    LocaliseForm(nearly);
    EXPECT_EQ(nearly.BackColour(), 0x00C0C0C1u);
}

TEST_F(FormLocalisation, ControlHasAFont_GetsTheFontWithoutBoldAndLosesItsTabStop) {
    for (Control* control : {form_.label, form_.bar, form_.yes, form_.plain}) {
        control->SetFont({u"Courier", 12, 2, true});
    }
    LocaliseForm(form_);
    const Font expected{u"Arial", 9, 161, false};
    for (const char16_t* name : {u"label", u"bar", u"yes", u"plain"}) {
        EXPECT_EQ(Window().Control(name).font, expected) << runtime::ToUtf8(name);
    }
    EXPECT_FALSE(form_.yes->TabStop());
    EXPECT_FALSE(form_.plain->TabStop());
    EXPECT_NE(Window().Control(u"picture").font, expected);
}

TEST_F(FormLocalisation, NoFaceOrSize_ControlsGetTheDefaultsOfANewFont) {
    Values().uiFont = {};
    form_.yes->SetFont({u"Courier", 12, 2, true});
    LocaliseForm(form_);
    EXPECT_EQ(form_.yes->Font(), (Font{u"MS Sans Serif", 8.25F, 0, false}));
    Values().uiFont = {u"", 9, 129};
    LocaliseForm(form_);
    EXPECT_EQ(form_.yes->Font(), (Font{u"MS Sans Serif", 9, 129, false}));
}

TEST_F(FormLocalisation, InputControlsGetTheFontAndKeepTheirTexts) {
    tests::InputForm inputs;
    inputs.text.SetText(u"R1");
    LocaliseForm(inputs);
    for (Control* control : {&inputs.text, &inputs.block, &inputs.combo, &inputs.dropDown, &inputs.list}) {
        EXPECT_EQ(control->Font(), (Font{u"Arial", 9, 161, false})) << runtime::ToUtf8(control->Name());
        EXPECT_FALSE(control->TabStop());
    }
    EXPECT_EQ(inputs.text.Text(), u"R1");
    EXPECT_EQ(inputs.combo.Text(), u"Combo1");
}

TEST_F(FormLocalisation, TextsFail_FontsAndColourAreSet) {
    tests::RecordingReader broken(reader_);
    broken.onEachText = [] { throw runtime::Error(runtime::kPropertyNotSupported); };
    const tests::ReaderInUse inUse(broken);
    LocaliseForm(form_);
    EXPECT_EQ(form_.Caption(), u"Title");
    EXPECT_EQ(form_.yes->Text(), u"&Yes");
    EXPECT_EQ(form_.plain->Font(), (Font{u"Arial", 9, 161, false}));
    EXPECT_EQ(form_.BackColour(), runtime::kButtonFace);
}

// The screen has 19200 x 15361 pixels, and a pixel is one twip. A frame adds 120 twips to the width and 405 to the
// height.
class FormPlace : public FormLocalisation {
 protected:
    FormPlace() {
        memory_.windows.MakePixelsTwips();
        memory_.windows.screen = {19200, 15361};
    }
};

TEST_F(FormPlace, CentredForm_IsInTheMiddleOfTheScreen) {
    SetForm(form_);
    EXPECT_EQ(form_.Left(), (19200 - 6120) / 2);
    EXPECT_EQ(form_.Top(), (15361 - 3405) / 2);
    EXPECT_EQ(form_.Width(), 6120);
    EXPECT_EQ(form_.Height(), 3405);
}

TEST_F(FormPlace, TopIsSetBeforeLeft) {
    form_.EnsureLoaded();
    Window().places.clear();
    SetForm(form_);
    EXPECT_THAT(Window().places, ElementsAre(Pair(300, 5978), Pair(6540, 5978)));
}

TEST_F(FormPlace, MinimisedOrMaximised_IsError384) {
    for (const runtime::WindowState state : {runtime::WindowState::kMinimised, runtime::WindowState::kMaximised}) {
        form_.SetState(state);
        EXPECT_EQ(tests::ErrorOf([this] { SetForm(form_); }), runtime::kMoveWhileMinimisedOrMaximised);
        EXPECT_EQ(form_.Left(), 300);
        EXPECT_EQ(form_.Top(), 300);
    }
}

TEST_F(FormPlace, LargerThanTheScreen_MovesDownAndRight) {
    form_.SetWidth(20000);
    form_.SetHeight(16001);
    SetForm(form_);
    EXPECT_EQ(form_.Left(), 400);
    EXPECT_EQ(form_.Top(), 320);
}

}  // namespace
}  // namespace services
