// Tests which properties each kind of control has by name, and which values a font refuses.
#include "runtime/LateBound.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "runtime/Error.h"
#include "runtime/Form.h"
#include "tests/support/ErrorOf.h"
#include "tests/support/InputForm.h"
#include "tests/support/RuntimeFixture.h"

namespace runtime {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class AllKinds : public Form {
 public:
    AllKinds() : Form({.name = u"all", .inner = {6000, 3000}}) {
        label = &AddControl({.kind = ControlKind::kLabel, .name = u"label", .text = u"Label", .tag = u"1"});
        button = &AddControl({.kind = ControlKind::kButton, .name = u"button", .text = u"&B", .tabIndex = 0});
        picture = &AddControl({.kind = ControlKind::kPicture, .name = u"picture", .tag = u"3"});
        bar = &AddControl({.kind = ControlKind::kStatusBar, .name = u"bar", .text = u"Ready", .tag = u"4"});
    }
    Control* label;
    Control* button;
    Control* picture;
    Control* bar;
};

class LateBound : public tests::RuntimeTest {
 protected:
    static PropertyValue Text(StringView text) { return String(text); }

    /// Returns the properties that the control accepts.
    static std::vector<std::string> Writable(Control& control) {
        const std::pair<std::string, PropertyValue> properties[] = {
            {"Bold", false},    {"Caption", Text(u"x")}, {"Charset", std::int16_t{0}}, {"ControlFont", Font{}},
            {"Font", Font{}},   {"FontBold", false},     {"FontName", Text(u"Arial")}, {"HeadFont", Font{}},
            {"TabStop", false}, {"Tag", Text(u"9")},
        };
        std::vector<std::string> taken;
        for (const auto& [name, value] : properties) {
            const AccessError error = PutProperty(control, FromAscii(name), value);
            if (error == kNoError) {
                taken.push_back(name);
            } else {
                EXPECT_EQ(error, kPropertyNotSupported) << name;
            }
        }
        return taken;
    }
    static std::vector<std::string> Readable(Control& control) {
        std::vector<std::string> given;
        for (const char* name : {"Bold", "Caption", "Charset", "Font", "FontBold", "FontName", "TabStop", "Tag"}) {
            PropertyValue value;
            if (GetProperty(control, FromAscii(name), value) == kNoError) given.emplace_back(name);
        }
        return given;
    }

    AllKinds form_;
};

TEST_F(LateBound, Picture_TextAndFontAreNotSupported) {
    EXPECT_EQ(tests::ErrorOf([&] { form_.picture->Text(); }), kPropertyNotSupported);
    EXPECT_EQ(tests::ErrorOf([&] { form_.picture->SetText(u"x"); }), kPropertyNotSupported);
    EXPECT_EQ(tests::ErrorOf([&] { form_.picture->Font(); }), kPropertyNotSupported);
    EXPECT_EQ(tests::ErrorOf([&] { form_.picture->SetFont({}); }), kPropertyNotSupported);
}

TEST_F(LateBound, Put_EachKindAcceptsOnlyItsProperties) {
    EXPECT_THAT(Writable(*form_.label), ElementsAre("Caption", "Font", "FontBold", "FontName"));
    EXPECT_THAT(Writable(*form_.button), ElementsAre("Caption", "Font", "FontBold", "FontName", "TabStop"));
    EXPECT_THAT(Writable(*form_.picture), IsEmpty());
    EXPECT_THAT(Writable(*form_.bar), ElementsAre("Font"));
}

TEST_F(LateBound, InputControl_HasFontAndTabStopButNoCaption) {
    tests::InputForm inputs;
    for (Control* control : {&inputs.text, &inputs.block, &inputs.combo, &inputs.dropDown, &inputs.list}) {
        SCOPED_TRACE(ToUtf8(control->Name()));
        EXPECT_THAT(Writable(*control), ElementsAre("Font", "FontBold", "FontName", "TabStop"));
        EXPECT_THAT(Readable(*control), ElementsAre("Font", "FontBold", "FontName", "TabStop", "Tag"));
    }
}

TEST_F(LateBound, ControlProperties_AccessTheControl) {
    ControlProperties properties(*form_.button);
    PropertyValue value;
    EXPECT_EQ(properties.Put(u"Caption", Text(u"&Ja")), kNoError);
    EXPECT_EQ(properties.Get(u"Caption", value), kNoError);
    EXPECT_EQ(value, Text(u"&Ja"));
    EXPECT_EQ(properties.PutOfFont(u"Font", u"Name", Text(u"Tahoma")), kNoError);
    EXPECT_EQ(form_.button->Font().name, u"Tahoma");
    EXPECT_EQ(properties.PutOfFont(u"HeadFont", u"Name", Text(u"Tahoma")), kPropertyNotSupported);
}

TEST_F(LateBound, Get_EachKindHasOnlyItsProperties) {
    EXPECT_THAT(Readable(*form_.label), ElementsAre("Caption", "Font", "FontBold", "FontName", "Tag"));
    EXPECT_THAT(Readable(*form_.button), ElementsAre("Caption", "Font", "FontBold", "FontName", "TabStop", "Tag"));
    EXPECT_THAT(Readable(*form_.picture), ElementsAre("Tag"));
    EXPECT_THAT(Readable(*form_.bar), ElementsAre("Font", "Tag"));
}

TEST_F(LateBound, PutThenGet_ReturnsTheValue) {
    Control& button = *form_.button;
    EXPECT_EQ(PutProperty(button, u"Caption", Text(u"&Ja")), kNoError);
    EXPECT_EQ(button.Text(), u"&Ja");
    EXPECT_EQ(PutProperty(button, u"TabStop", false), kNoError);
    EXPECT_FALSE(button.TabStop());
    EXPECT_EQ(PutProperty(button, u"Font", Font{u"Arial", 12, 161, true}), kNoError);
    EXPECT_EQ(button.Font(), (Font{u"Arial", 12, 161, true}));
    EXPECT_EQ(PutProperty(button, u"FontName", Text(u"Tahoma")), kNoError);
    EXPECT_EQ(PutProperty(button, u"FontBold", false), kNoError);
    EXPECT_EQ(button.Font(), (Font{u"Tahoma", 12, 161, false}));
    PropertyValue value;
    EXPECT_EQ(GetProperty(button, u"Caption", value), kNoError);
    EXPECT_EQ(value, Text(u"&Ja"));
    EXPECT_EQ(GetProperty(*form_.picture, u"Tag", value), kNoError);
    EXPECT_EQ(value, Text(u"3"));
}

TEST_F(LateBound, GetFails_ValueIsUnchanged) {
    PropertyValue value = Text(u"before");
    EXPECT_EQ(GetProperty(*form_.bar, u"Caption", value), kPropertyNotSupported);
    EXPECT_EQ(value, Text(u"before"));
}

TEST_F(LateBound, ValueOfTheWrongType_IsTypeMismatch) {
    EXPECT_EQ(PutProperty(*form_.button, u"Caption", false), kTypeMismatch);
    EXPECT_EQ(PutProperty(*form_.button, u"Font", Text(u"Arial")), kTypeMismatch);
    EXPECT_EQ(PutProperty(*form_.button, u"TabStop", std::int16_t{0}), kTypeMismatch);
    EXPECT_EQ(PutProperty(*form_.button, u"FontName", std::int16_t{8}), kTypeMismatch);
    EXPECT_EQ(PutFontProperty(*form_.button, u"Font", u"Size", Text(u"8")), kTypeMismatch);
    EXPECT_EQ(form_.button->Text(), u"&B");
}

TEST_F(LateBound, PutFontProperty_AcceptsOnlyThePropertyNamedFont) {
    const PropertyValue name = Text(u"Arial");
    EXPECT_EQ(PutFontProperty(*form_.label, u"Font", u"Name", name), kNoError);
    EXPECT_EQ(PutFontProperty(*form_.bar, u"Font", u"Charset", std::int16_t{128}), kNoError);
    EXPECT_EQ(PutFontProperty(*form_.label, u"HeadFont", u"Name", name), kPropertyNotSupported);
    EXPECT_EQ(PutFontProperty(*form_.label, u"ControlFont", u"Name", name), kPropertyNotSupported);
    EXPECT_EQ(PutFontProperty(*form_.picture, u"Font", u"Name", name), kPropertyNotSupported);
    EXPECT_EQ(PutFontProperty(*form_.label, u"Font", u"Italic", false), kPropertyNotSupported);
    EXPECT_EQ(form_.label->Font().name, u"Arial");
    EXPECT_EQ(form_.bar->Font().charset, 128);
}

TEST_F(LateBound, EmptyNameOrInvalidSize_FontIsUnchanged) {
    Font font{u"Arial", 12, 0, false};
    EXPECT_EQ(PutFontProperty(font, u"Name", Text(u"")), kInvalidPropertyValue);
    EXPECT_EQ(PutFontProperty(font, u"Size", std::int16_t{0}), kInvalidPropertyValue);
    EXPECT_EQ(PutFontProperty(font, u"Size", std::int16_t{-9}), kInvalidPropertyValue);
    EXPECT_EQ(PutFontProperty(font, u"Size", std::int16_t{2161}), kInvalidPropertyValue);
    EXPECT_EQ(font, (Font{u"Arial", 12, 0, false}));
    EXPECT_EQ(PutFontProperty(font, u"Size", std::int16_t{2160}), kNoError);
    EXPECT_EQ(PutFontProperty(font, u"Size", std::int16_t{1}), kNoError);
    EXPECT_EQ(font.size, 1);
    EXPECT_EQ(PutProperty(*form_.label, u"FontName", Text(u"")), kInvalidPropertyValue);
    EXPECT_EQ(form_.label->Font().name, u"MS Sans Serif");
}

class LateBoundWithoutWindow : public tests::HeadlessTest {};

TEST_F(LateBoundWithoutWindow, FormFailsToLoad_ReturnsTheError) {
    AllKinds form;
    memory_.windows.refuseWindows = 1;
    EXPECT_EQ(PutProperty(*form.label, u"Caption", String(u"x")), kOutOfMemory);
}

}  // namespace
}  // namespace runtime
