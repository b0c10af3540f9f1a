// Tests the appearance of the query dialog: the design, the controls of each kind of input, the layout and the
// position.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <utility>
#include <vector>

#include "dialogs/Qmxquery_test.h"
#include "services/ProcessValues.h"

namespace dialogs {
namespace {

using runtime::headless::MemoryWindow;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

using Query = QueryTest;

TEST_F(Query, Loaded_HasTheDesignValues) {
    Qmxquery dialog;
    EXPECT_EQ(dialog.InnerSize(), (runtime::Size{5595, 2415}));
    const MemoryWindow& window = memory_.windows.Last();
    EXPECT_EQ(window.border, runtime::BorderStyle::kFixedDialog);
    EXPECT_EQ(window.Control(u"lblPrompt").bounds, (runtime::Rect{60, 60, 4155, 1065}));
    EXPECT_EQ(window.Control(u"cmdAccept").bounds, (runtime::Rect{4320, 210, 1125, 345}));
    EXPECT_EQ(window.Control(u"cmdAccept").text, u"Accept");
    EXPECT_EQ(window.Control(u"cmdCancel").bounds, (runtime::Rect{4320, 690, 1125, 345}));
    EXPECT_EQ(window.Control(u"cmdCancel").text, u"Cancel");
    for (const StringView name : {u"txtText", u"cboDropdown", u"cboCombo"}) {
        EXPECT_EQ(window.Control(name).bounds, (runtime::Rect{60, 1170, 5475, 315}));
    }
    EXPECT_EQ(window.Control(u"cboCombo").text, u"Combo1");
    EXPECT_EQ(window.Control(u"txtTextBlock").bounds, (runtime::Rect{60, 1170, 5475, 765}));
    EXPECT_EQ(window.Control(u"cboList").bounds, (runtime::Rect{60, 1170, 5475, 840}));
    EXPECT_EQ(window.Control(u"F_Button").bounds, (runtime::Rect{120, 2040, 5415, 375}));
    EXPECT_THAT(ShownInputs(window), IsEmpty());
    EXPECT_FALSE(window.Control(u"F_Button").visible);
}

TEST_F(Query, ControlsHaveTheTagsOfTheirCaptions) {
    Qmxquery dialog;
    std::vector<String> tags;
    for (const auto& control : dialog.Controls()) tags.push_back(control->Tag());
    EXPECT_THAT(tags, ElementsAre(u"", u"99177", u"99388 ", u"", u"", u"", u"", u"", u""));
}

TEST_F(Query, EachKind_ShowsTheControlOfTheKind) {
    const auto shown = [this](std::int32_t kind) {
        std::vector<StringView> names;
        Look({.kind = kind}, [&names](MemoryWindow& dialog) { names = ShownInputs(dialog); });
        return names;
    };
    EXPECT_THAT(shown(1), ElementsAre(u"txtText"));
    EXPECT_THAT(shown(2), ElementsAre(u"cboCombo"));
    EXPECT_THAT(shown(3), ElementsAre(u"cboDropdown"));
    EXPECT_THAT(shown(4), ElementsAre(u"txtTextBlock"));
    EXPECT_THAT(shown(5), ElementsAre(u"cboList"));
    for (const std::int32_t other : {0, 6, 9, -1}) EXPECT_THAT(shown(other), ElementsAre(u"txtText"));
}

TEST_F(Query, ShowsTitlePromptAndButton) {
    Look({.prompt = u"Name?", .button = u"More"}, [](MemoryWindow& dialog) {
        EXPECT_EQ(dialog.caption, u"Title");
        EXPECT_EQ(dialog.Control(u"lblPrompt").text, u"Name?");
        EXPECT_TRUE(dialog.Control(u"F_Button").visible);
        EXPECT_EQ(dialog.Control(u"F_Button").text, u"More");
    });
    Look({}, [](MemoryWindow& dialog) { EXPECT_FALSE(dialog.Control(u"F_Button").visible); });
}

TEST_F(Query, ListsShowTheItemsAndNotTheInitialText) {
    for (const auto& [kind, name] : {std::pair{2, u"cboCombo"}, {3, u"cboDropdown"}, {5, u"cboList"}}) {
        Look({.kind = kind, .values = {u"X", u"Y", u"", u"Z  "}},
             [name](MemoryWindow& dialog) { EXPECT_THAT(dialog.Control(name).items, ElementsAre(u"Y", u"", u"Z  ")); });
    }
}

TEST_F(Query, Tab_MovesTheFocusInTheDesignsOrder) {
    const auto walk = [this](std::int32_t kind) {
        return WalkOf({.kind = kind, .values = {u"abc", u"A"}, .button = u"More"});
    };
    EXPECT_THAT(walk(1), ElementsAre(u"txtText", u"cmdAccept", u"cmdCancel", u"F_Button", u"txtText"));
    EXPECT_THAT(walk(2), ElementsAre(u"cboCombo", u"cmdAccept", u"cmdCancel", u"F_Button", u"cboCombo"));
    EXPECT_THAT(walk(3), ElementsAre(u"cboDropdown", u"cmdAccept", u"cmdCancel", u"F_Button", u"cboDropdown"));
    EXPECT_THAT(walk(4), ElementsAre(u"cmdAccept", u"cmdCancel", u"txtTextBlock", u"F_Button", u"cmdAccept"));
    EXPECT_THAT(walk(5), ElementsAre(u"cmdAccept", u"cmdCancel", u"cboList", u"F_Button", u"cmdAccept"));
}

TEST_F(Query, EachActivation_MakesTheDialogTopmost) {
    Look({}, [](MemoryWindow& dialog) {
        EXPECT_THAT(dialog.topMost, ElementsAre(true));
        dialog.Events().Activated();
        EXPECT_THAT(dialog.topMost, ElementsAre(true, true));
    });
}

TEST_F(Query, PromptIsTheInputsAccessibleName) {
    for (const std::int32_t kind : {1, 2, 3, 4, 5}) {
        Look({.kind = kind, .prompt = u"Which?"}, [](MemoryWindow& dialog) {
            EXPECT_EQ(dialog.Control(ShownInputs(dialog).at(0)).accessibleName, u"Which?");
        });
    }
}

TEST_F(Query, ShortPrompt_FormHasTheMinimumHeight) {
    // Outer height 2000, inner height 1625.
    Look({}, [](MemoryWindow& dialog) {
        EXPECT_EQ(dialog.outer.height, 2000);
        EXPECT_EQ(dialog.InnerSize().width, 5595);
        EXPECT_EQ(dialog.Control(u"lblPrompt").bounds, (runtime::Rect{60, 60, 4155, 1190}));
        EXPECT_EQ(dialog.Control(u"txtText").bounds, (runtime::Rect{60, 1250, 5475, 315}));
        EXPECT_EQ(dialog.Control(u"cmdAccept").bounds.top, 210);
        EXPECT_EQ(dialog.Control(u"cmdCancel").bounds.top, 690);
    });
    // Outer height 2400 + 495, inner height 2520.
    Look({.kind = 5, .button = u"More"}, [](MemoryWindow& dialog) {
        EXPECT_EQ(dialog.outer.height, 2895);
        EXPECT_EQ(dialog.Control(u"F_Button").bounds, (runtime::Rect{120, 2145, 5415, 375}));
        EXPECT_EQ(dialog.Control(u"lblPrompt").bounds, (runtime::Rect{60, 60, 4155, 1185}));
        EXPECT_EQ(dialog.Control(u"cboList").bounds, (runtime::Rect{60, 1245, 5475, 840}));
    });
}

TEST_F(Query, PromptOfManyLines_FormIsHigher) {
    // The prompt is 5400 wide, which counts as one more line. 1 + 10 + 3 lines are 14 x 195 = 2730 high. With the 765
    // of the text block, the outer height is 3495. The inner height is 3120.
    String prompt(60, u'm');
    for (int i = 1; i < 10; ++i) prompt += u"\r\n" + String(60, u'm');
    Look({.kind = 4, .prompt = prompt}, [](MemoryWindow& dialog) {
        EXPECT_EQ(dialog.outer.height, 3495);
        EXPECT_EQ(dialog.Control(u"lblPrompt").bounds.height, 2235);
        EXPECT_EQ(dialog.Control(u"txtTextBlock").bounds, (runtime::Rect{60, 2295, 5475, 765}));
    });
}

TEST_F(Query, LineEndIsNotCrLf_PromptIsOnePiece) {
    const auto heightOf = [this](StringView lineEnd) {
        String prompt = u"1";
        for (int line = 2; line <= 30; ++line) prompt += String(lineEnd) + u"2";
        runtime::Twips height = 0;
        Look({.prompt = prompt}, [&height](MemoryWindow& dialog) { height = dialog.outer.height; });
        return height;
    };
    // There are 30 pieces and three spare lines. No line is wide enough to count twice.
    EXPECT_EQ(heightOf(u"\r\n"), 33 * 195 + 315);
    for (const StringView other : {u"\n", u"\r", u"\n\r"}) EXPECT_EQ(heightOf(other), 2000);
}

TEST_F(Query, LargeFont_CombosArePlacedByTheTextBoxsHeight) {
    services::Values().uiFont = {u"Arial", 20, 0};
    for (const auto& [kind, name] : {std::pair{2, u"cboCombo"}, {3, u"cboDropdown"}}) {
        Look({.kind = kind}, [name](MemoryWindow& dialog) {
            runtime::headless::MemoryControl& combo = dialog.Control(name);
            EXPECT_EQ(combo.ClosedHeight(), 593);
            EXPECT_EQ(combo.bounds.top, 1250);
            EXPECT_EQ(dialog.Control(u"lblPrompt").bounds.height, 1190);
            EXPECT_EQ(dialog.outer.height, 2000);
        });
    }
}

TEST_F(Query, DialogHigherThanTheScreen_HeightIsLimited) {
    String prompt;
    for (int i = 0; i < 100; ++i) prompt += u"line\r\n";
    Look({.kind = 3, .prompt = prompt}, [](MemoryWindow& dialog) {
        EXPECT_EQ(dialog.outer.height, 15360 - 1200);
        EXPECT_EQ(dialog.Control(u"cboDropdown").bounds.top, 14160 - 375 - 315 - 60);
    });
}

TEST_F(Query, PromptIsMeasuredInTheFormsFont) {
    services::Values().uiFont = {u"Arial", 80, 0};
    Look({.prompt = String(60, u'm')}, [](MemoryWindow& dialog) { EXPECT_EQ(dialog.outer.height, 2000); });
}

TEST_F(Query, Shown_IsCentred) {
    memory_.windows.screen = {19201, 15360};
    // Outer size 5595 + 90 by 2000.
    Look({}, [](MemoryWindow& dialog) {
        EXPECT_EQ(dialog.outer, (runtime::Rect{(19201 - 5685) / 2.0F, 6680, 5685, 2000}));
    });
}

TEST_F(Query, EachQuestionStartsFromTheDesign) {
    Look({.kind = 5, .values = {u"", u"A"}, .prompt = String(600, u'm'), .button = u"More"}, [](MemoryWindow&) {});
    Look({}, [](MemoryWindow& dialog) {
        EXPECT_EQ(dialog.outer.height, 2000);
        EXPECT_THAT(ShownInputs(dialog), ElementsAre(u"txtText"));
        EXPECT_THAT(dialog.Control(u"cboList").items, IsEmpty());
        EXPECT_FALSE(dialog.Control(u"F_Button").visible);
    });
}

TEST_F(Query, CaptionsAreTranslated) {
    kernel_.Put(u"LANGUAGEPATH", u"C:\\lang");
    memory_.files.AddFile(u"C:\\lang\\K4TBackProcess.txt", "99177 = OK\n99388 = Abbruch\n");
    Look({}, [](MemoryWindow& dialog) {
        EXPECT_EQ(dialog.Control(u"cmdAccept").text, u"OK");
        EXPECT_EQ(dialog.Control(u"cmdCancel").text, u"Abbruch");
    });
}

TEST_F(Query, ScreenReader_GetsThePromptAsDescription) {
    Look({.prompt = u"Which side?"},
         [](MemoryWindow& dialog) { EXPECT_EQ(dialog.accessibleDescription, u"Which side?"); });
}

TEST_F(Query, LanguageReadFromRightToLeft_MirrorsTheDialog) {
    kernel_.Put(u"LANGUAGEPATH", u"C:\\he");
    memory_.files.AddFile(u"C:\\he\\K4TBackProcess.txt", "direction = rtl\n");
    Look({}, [this](MemoryWindow& dialog) {
        EXPECT_TRUE(dialog.isRightToLeft);
        EXPECT_EQ(memory_.windows.systemResolutions, 1);
        EXPECT_EQ(dialog.Control(u"cmdAccept").bounds, (runtime::Rect{4320, 210, 1125, 345}));
    });
    EXPECT_EQ(memory_.windows.systemResolutions, 0);
}

}  // namespace
}  // namespace dialogs
