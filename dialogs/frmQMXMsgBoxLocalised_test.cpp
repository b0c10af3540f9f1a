// Runs the suite's message box in the user's language and font, in memory.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <string_view>
#include <vector>

#include "dialogs/frmQMXMsgBox.h"
#include "services/ProcessValues.h"
#include "tests/support/ComponentFixture.h"

namespace dialogs {
namespace {

using runtime::Font;
using runtime::headless::MemoryControl;
using runtime::headless::MemoryWindow;
using services::Values;
using ::testing::ElementsAre;

class LocalisedBox : public tests::HeadlessComponentTest {
 protected:
    LocalisedBox() { memory_.windows.MakePixelsTwips(); }
    /// Asks a question, runs `look` while the box is open, and closes the box.
    void Look(StringView prompt, const std::function<void(MemoryWindow&)>& look) {
        bool wasOpen = false;
        memory_.windows.Post([this, look, &wasOpen] {
            wasOpen = true;
            MemoryWindow& box = memory_.windows.Last();
            look(box);
            box.Events().Closing(runtime::UnloadReason::kUser);
        });
        EXPECT_EQ(AskWithSuiteBox(prompt, 0, u"Title"), 2);
        EXPECT_TRUE(wasOpen);
    }
    std::vector<String> Captions() {
        std::vector<String> captions;
        Look(u"Overwrite?", [&](MemoryWindow& box) {
            for (const auto& control : box.controls) {
                if (control->look.kind == runtime::ControlKind::kButton) captions.push_back(control->text);
            }
        });
        return captions;
    }
    void UseLanguage(StringView folder, std::string_view texts) {
        memory_.files.AddFile(String(folder) + u"\\K4TBackProcess.txt", texts);
        kernel_.Put(u"LANGUAGEPATH", folder);
    }
};

TEST_F(LocalisedBox, ButtonCaptionsAreTranslated) {
    UseLanguage(u"C:\\de", "39171 = &Ja\n39172 = &Nein\n39173 = Ja zu &allem\n99388 = Abbrechen\n");
    EXPECT_THAT(Captions(), ElementsAre(u"&Ja", u"&Nein", u"Ja zu &allem", u"Abbrechen"));
}

TEST_F(LocalisedBox, EachQuestionStartsAgainFromTheDesignCaptions) {
    UseLanguage(u"C:\\de", "39171 = &Ja\n39172 = &Nein\n39173 = Ja zu &allem\n99388 = Abbrechen\n");
    Captions();
    UseLanguage(u"C:\\fr", "39171 = &Oui\n");
    EXPECT_THAT(Captions(), ElementsAre(u"&Oui", u"&No", u"Yes &To All", u"Cancel"));
    kernel_.Put(u"LANGUAGEPATH", u"");
    EXPECT_THAT(Captions(), ElementsAre(u"&Yes", u"&No", u"Yes &To All", u"Cancel"));
}

TEST_F(LocalisedBox, TranslatedAccessKey_PressesTheButton) {
    UseLanguage(u"C:\\de", "39171 = &Ja\n");
    memory_.windows.Post([&] { memory_.windows.Last().Events().AccessKey(u'j'); });
    EXPECT_EQ(AskWithSuiteBox(u"Overwrite?", 0, u"Title"), 6);
}

TEST_F(LocalisedBox, Load_KeepsTheLabelsDesignSize) {
    Values().uiFont = {u"Arial", 16, 161};
    // The box compares the size of a short prompt with the label's size in the design. The new font does not change
    // that size.
    Look(u"A?", [](MemoryWindow& box) {
        EXPECT_EQ(box.Control(u"lblPrompt").bounds, (runtime::Rect{945, 240, 3700, 390}));
        EXPECT_EQ(box.Control(u"lblPrompt").font, (Font{u"Arial", 16, 161, false}));
        EXPECT_EQ(box.InnerSize(), (runtime::Size{5085, 1425}));
    });
}

TEST_F(LocalisedBox, PromptIsMeasuredInTheLanguagesFont) {
    Values().uiFont = {u"Arial", 16, 0};
    // At 16 points, a character is 175 wide (90 * 16 / 8.25 = 174.5). A line is 378 high (195 * 16 / 8.25 = 378.2).
    Look(String(30, u'x'), [](MemoryWindow& box) {
        EXPECT_EQ(box.Control(u"lblPrompt").bounds, (runtime::Rect{945, 240, 5250, 390}));
        EXPECT_EQ(box.InnerSize(), (runtime::Size{5085 + 1550, 1425}));
    });
}

TEST_F(LocalisedBox, NoFontChosen_BoxIsUsable) {
    Look(u"Overwrite?", [](MemoryWindow& box) {
        EXPECT_EQ(box.Control(u"lblPrompt").font, Font{});
        EXPECT_EQ(box.Control(u"cmdBut").font, Font{});
        EXPECT_EQ(box.Control(u"lblPrompt").bounds, (runtime::Rect{945, 240, 3700, 390}));
    });
}

TEST_F(LocalisedBox, LanguageReadFromRightToLeft_MirrorsTheBox) {
    const auto isMirrored = [this] {
        bool found = false;
        Look(u"Overwrite?", [&](MemoryWindow& box) {
            found = box.isRightToLeft;
            EXPECT_EQ(box.controls.at(2)->bounds, (runtime::Rect{180, 915, 1125, 345}));
        });
        return found;
    };
    EXPECT_FALSE(isMirrored());
    UseLanguage(u"C:\\de", "39171 = &Ja\n");
    EXPECT_FALSE(isMirrored());
    UseLanguage(u"C:\\he", "direction = rtl\n");
    EXPECT_TRUE(isMirrored());
    UseLanguage(u"C:\\wrong", "direction = RTL\n");
    EXPECT_FALSE(isMirrored());
}

}  // namespace
}  // namespace dialogs
