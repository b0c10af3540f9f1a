// The query dialog, played in memory. A character is 90 twips wide and a line 195 high there, frame and title bar take
// 375 of a form's height.
#include "dialogs/Qmxquery.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <ostream>
#include <utility>
#include <vector>

#include "runtime/Error.h"
#include "runtime/LoadedForms.h"
#include "runtime/Screen.h"
#include "services/ProcessValues.h"
#include "tests/support/ComponentFixture.h"
#include "tests/support/HandledForm.h"
#include "tests/support/Question.h"

namespace dialogs {
namespace {

using runtime::headless::MemoryControl;
using runtime::headless::MemoryWindow;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using tests::Answer;
using tests::ErrorOf;
using tests::kButtonAnswer;
using tests::kNoAnswer;
using tests::Question;

constexpr std::int16_t kF1 = 112;

using User = std::function<void(MemoryWindow& dialog)>;

std::vector<StringView> ShownInputs(const MemoryWindow& dialog) {
    std::vector<StringView> shown;
    for (const StringView name : {u"txtText", u"cboDropdown", u"cboCombo", u"txtTextBlock", u"cboList"}) {
        if (dialog.Control(name).visible) shown.push_back(name);
    }
    return shown;
}

std::size_t PlaceOf(const MemoryWindow& dialog, StringView name) {
    const auto& all = dialog.controls;
    const auto found = std::find_if(all.begin(), all.end(), [name](const auto& c) { return c->look.name == name; });
    return static_cast<std::size_t>(found - all.begin());
}

void Click(MemoryWindow& dialog, StringView name) {
    dialog.Events().Clicked(PlaceOf(dialog, name));
}

User Clicks(StringView name) {
    return [name](MemoryWindow& dialog) { Click(dialog, name); };
}

void Close(MemoryWindow& dialog) {
    dialog.Events().Closing(runtime::UnloadReason::kUser);
}

void PressEnter(MemoryWindow& dialog) {
    dialog.Press(runtime::kKeyEnter);
}

class Query : public tests::HeadlessComponentTest {
 protected:
    ~Query() override { ReleaseQuery(); }

    void Queue(const User& user) {
        wasOpen_ = false;
        memory_.windows.Post([this, user] {
            wasOpen_ = true;
            user(memory_.windows.Last());
        });
    }
    /// Asks, and does `user` while the dialog is open.
    Answer Ask(Question question, const User& user) {
        Queue(user);
        const Answer answer = tests::AskFor(question);
        EXPECT_TRUE(wasOpen_);
        return answer;
    }
    /// Looks at the open dialog, then closes it.
    void Look(const Question& question, const User& look) {
        EXPECT_EQ(Ask(question,
                      [&look](MemoryWindow& dialog) {
                          look(dialog);
                          Close(dialog);
                      }),
                  kNoAnswer);
    }
    /// The names of the controls that Tab walks, beginning with the one that has the focus at first.
    std::vector<String> WalkOf(const Question& question) {
        std::vector<String> walk;
        Look(question, [&walk](MemoryWindow& dialog) {
            for (int i = 0; i < 5; ++i) {
                for (const auto& control : dialog.controls) {
                    if (control->focuses > 0) walk.push_back(control->look.name);
                    control->focuses = 0;
                }
                dialog.Events().KeyDown(runtime::kKeyTab, 0);
            }
        });
        return walk;
    }

    bool wasOpen_ = false;
};

TEST_F(Query, CentresAnyFormWithoutLoadingItself) {
    tests::HandledForm other;
    Qmxquery dialog;
    dialog.SetForm(other);
    const runtime::Size screen = runtime::ScreenSize();
    EXPECT_EQ(other.Left(), (screen.width - other.Width()) / 2.0F);
    EXPECT_EQ(other.Top(), (screen.height - other.Height()) / 2.0F);
    EXPECT_FALSE(dialog.IsLoaded());
}

TEST_F(Query, HasItsDesign) {
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

TEST_F(Query, TagsNameTheCaptions) {
    Qmxquery dialog;
    std::vector<String> tags;
    for (const auto& control : dialog.Controls()) tags.push_back(control->Tag());
    EXPECT_THAT(tags, ElementsAre(u"", u"99177", u"99388 ", u"", u"", u"", u"", u"", u""));
}

TEST_F(Query, EachKindShowsItsOwnControl) {
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

TEST_F(Query, InitialTextLosesTrailingBlanksAndIsSelected) {
    for (const auto& [kind, name] : {std::pair{1, u"txtText"}, {2, u"cboCombo"}, {4, u"txtTextBlock"}}) {
        Question question{.kind = kind, .values = {u" abc   ", u"Y"}};
        Queue([&question, name](MemoryWindow& dialog) {
            EXPECT_EQ(question.values[0], u" abc");
            const MemoryControl& control = dialog.Control(name);
            EXPECT_EQ(control.text, u" abc");
            EXPECT_EQ(control.selection, (runtime::TextRange{0, 4}));
            Click(dialog, u"cmdAccept");
        });
        EXPECT_EQ(tests::AskFor(question), (Answer{u" abc", 0}));
    }
}

TEST_F(Query, OnlyBlanksAreStripped) {
    for (const String& text : {String(u"a\t"), String(u"a\r\n"), String(u"a\u00A0"), String(u"a\u3000")}) {
        EXPECT_EQ(Ask({.values = {text + u"  "}}, PressEnter), (Answer{text, 0}));
    }
    EXPECT_EQ(Ask({.values = {u"    "}}, PressEnter), (Answer{u"", 0}));
}

TEST_F(Query, ListsShowTheItemsAndNotTheInitialText) {
    for (const auto& [kind, name] : {std::pair{2, u"cboCombo"}, {3, u"cboDropdown"}, {5, u"cboList"}}) {
        Look({.kind = kind, .values = {u"X", u"Y", u"", u"Z  "}},
             [name](MemoryWindow& dialog) { EXPECT_THAT(dialog.Control(name).items, ElementsAre(u"Y", u"", u"Z  ")); });
    }
}

TEST_F(Query, IndexCountsFromNothingOnEntryAndIsASubscriptAfterwards) {
    for (const std::int32_t kind : {3, 5}) {
        const Question question{.kind = kind, .values = {u"x", u"A", u"B", u"C"}, .index = 1};
        EXPECT_EQ(Ask(question, Clicks(u"cmdAccept")), (Answer{u"B", 2}));
        EXPECT_EQ(Ask(question, [](MemoryWindow& dialog) { dialog.Events().KeyPress(13); }), (Answer{u"B", 2}));
    }
}

TEST_F(Query, NothingSelectedIsEmptyAndZero) {
    for (const std::int32_t kind : {3, 5}) {
        EXPECT_EQ(Ask({.kind = kind, .values = {u"x", u"A"}}, Clicks(u"cmdAccept")), (Answer{u"", 0}));
        EXPECT_EQ(Ask({.kind = kind, .values = {u"x"}}, Clicks(u"cmdAccept")), (Answer{u"", 0}));
    }
}

TEST_F(Query, IndexDoesNotMatterWhereTextIsTyped) {
    for (const std::int32_t kind : {0, 1, 2, 4}) {
        EXPECT_EQ(Ask({.kind = kind, .values = {u"abc"}, .index = 77}, Clicks(u"cmdAccept")), (Answer{u"abc", 0}));
    }
}

/// Notes what its controls are like when it goes.
class LeavingDialog : public Qmxquery {
 public:
    struct Input {
        String name;
        bool isVisible;
        int items;
        bool operator==(const Input&) const = default;
    };
    std::vector<Input> left;

 private:
    void OnUnload(bool&) override {
        for (const auto& control : Controls()) {
            if (!runtime::IsInput(control->Kind())) continue;
            const int items = runtime::HasList(control->Kind()) ? control->ItemCount() : 0;
            if (control->Visible() || items > 0) left.push_back({control->Name(), control->Visible(), items});
        }
    }
};

void PrintTo(const LeavingDialog::Input& input, std::ostream* out) {
    *out << runtime::ToUtf8(input.name) << (input.isVisible ? " visible, " : " hidden, ") << input.items;
}

TEST_F(Query, AcceptHidesTheInputAndClearsItsItemsAndOtherEndsDoNot) {
    const auto leftBy = [this](std::int32_t kind, const User& user) {
        LeavingDialog dialog;
        std::vector<String> values = {u"x", u"A", u"B"};
        std::int32_t index = 0;
        Queue(user);
        dialog.QUERY(u"Title", u"Name?", values, kind, index, true, u"More");
        return dialog.left;
    };
    using Input = LeavingDialog::Input;
    const Input inputs[] = {{u"txtText", true, 0},
                            {u"cboCombo", true, 2},
                            {u"cboDropdown", true, 2},
                            {u"txtTextBlock", true, 0},
                            {u"cboList", true, 2}};
    std::int32_t kind = 1;
    for (const Input& input : inputs) {
        EXPECT_THAT(leftBy(kind, Clicks(u"cmdAccept")), IsEmpty());
        for (const StringView other : {u"cmdCancel", u"F_Button"}) {
            EXPECT_THAT(leftBy(kind, Clicks(other)), ElementsAre(input));
        }
        ++kind;
    }
}

TEST_F(Query, CancelExtraButtonAndAcceptedEmptyTextAreToldApart) {
    const Question question{.values = {u"abc"}, .button = u"More"};
    EXPECT_EQ(Ask(question, Clicks(u"cmdCancel")), kNoAnswer);
    EXPECT_EQ(Ask(question, [](MemoryWindow& dialog) { dialog.Events().KeyDown(runtime::kKeyEscape, 0); }), kNoAnswer);
    EXPECT_EQ(Ask(question, Clicks(u"F_Button")), kButtonAnswer);
    EXPECT_EQ(Ask({.values = {u""}}, Clicks(u"cmdAccept")), (Answer{u"", 0}));
}

TEST_F(Query, ClosingTheWindowCancelsEvenAfterAnEarlierAnswer) {
    EXPECT_EQ(Ask({.values = {u"abc"}}, PressEnter), (Answer{u"abc", 0}));
    EXPECT_EQ(Ask({.values = {u"abc"}}, Close), kNoAnswer);
}

TEST_F(Query, UnloadedBySomebodyElseCancels) {
    EXPECT_EQ(Ask({.values = {u"abc"}}, [](MemoryWindow&) { runtime::LoadedForms().At(0).Unload(); }), kNoAnswer);
    EXPECT_EQ(runtime::LoadedForms().Count(), 0u);
}

TEST_F(Query, RequestToQuitCancelsAndStaysPending) {
    EXPECT_EQ(Ask({.values = {u"abc"}}, [this](MemoryWindow&) { memory_.windows.Quit(); }), kNoAnswer);
    EXPECT_TRUE(memory_.windows.quitting);
    EXPECT_EQ(runtime::LoadedForms().Count(), 0u);
}

TEST_F(Query, EnterInTheComboAccepts) {
    EXPECT_EQ(Ask({.kind = 2, .values = {u"X", u"Y"}}, PressEnter), (Answer{u"X", 0}));
    EXPECT_THAT(memory_.windows.Windows(), IsEmpty());
}

TEST_F(Query, EnterThatBothHandlersSeeAcceptsOnce) {
    class OpenEars : public Qmxquery {
        void OnKeyPress(char16_t& character) override {
            runtime::Control& combo = *Controls().at(5);
            Qmxquery::OnKeyPress(character);
            OnControlKeyPress(combo, character);
        }
    } dialog;
    std::vector<String> values = {u"X", u"Y"};
    std::int32_t index = 0;
    Queue(PressEnter);
    EXPECT_EQ(dialog.QUERY(u"Title", u"Name?", values, kCombo, index, false, u""), u"X");
    EXPECT_FALSE(dialog.IsLoaded());
}

TEST_F(Query, ComboAcceptsItsOwnEnterWhateverTheFormDoes) {
    class DeafForm : public Qmxquery {
        void OnKeyPress(char16_t&) override {}
    } dialog;
    std::vector<String> values = {u"X", u"Y"};
    std::int32_t index = 0;
    Queue(PressEnter);
    EXPECT_EQ(dialog.QUERY(u"Title", u"Name?", values, kCombo, index, false, u""), u"X");
}

TEST_F(Query, TypingReplacesTheInitialText) {
    for (const std::int32_t kind : {0, 1, 2, 9}) {
        const auto type = [](MemoryWindow& dialog) {
            dialog.Type(u"Q");
            PressEnter(dialog);
        };
        EXPECT_EQ(Ask({.kind = kind, .values = {u"X", u"Y", u"Z"}}, type), (Answer{u"Q", 0}));
    }
}

TEST_F(Query, ComboGivesWhatIsPicked) {
    const auto pick = [](MemoryWindow& dialog) {
        dialog.Press(runtime::kKeyDown);
        dialog.Press(runtime::kKeyDown);
        PressEnter(dialog);
    };
    EXPECT_EQ(Ask({.kind = 2, .values = {u"X", u"Y", u"Z"}}, pick), (Answer{u"Z", 0}));
}

TEST_F(Query, ListsAreWalkedByKeys) {
    for (const std::int32_t kind : {3, 5}) {
        const auto answerTo = [this, kind](const User& keys) {
            const Question question{.kind = kind, .values = {u"", u"Ant", u"Bee", u"Cat"}, .index = 1};
            return Ask(question, [kind, &keys](MemoryWindow& dialog) {
                for (int i = 0; i < 2 && kind == kList; ++i) dialog.Press(runtime::kKeyTab);
                keys(dialog);
                PressEnter(dialog);
            });
        };
        EXPECT_EQ(answerTo([](MemoryWindow& dialog) { dialog.Press(runtime::kKeyDown); }), (Answer{u"Cat", 3}));
        EXPECT_EQ(answerTo([](MemoryWindow& dialog) { dialog.Press(runtime::kKeyUp); }), (Answer{u"Ant", 1}));
        EXPECT_EQ(answerTo([](MemoryWindow& dialog) { dialog.Type(u"c"); }), (Answer{u"Cat", 3}));
    }
}

TEST_F(Query, EnterInTheTextBlockMakesALine) {
    const auto type = [](MemoryWindow& dialog) {
        dialog.Press(runtime::kKeyTab);
        dialog.Press(runtime::kKeyTab);
        dialog.Type(u"a");
        PressEnter(dialog);
        dialog.Type(u"b");
        EXPECT_TRUE(dialog.visible);
        Click(dialog, u"cmdAccept");
    };
    EXPECT_EQ(Ask({.kind = 4, .values = {u"abc"}}, type), (Answer{u"a\r\nb", 0}));
}

TEST_F(Query, HeldEnterIsNoAnswerButWritesLines) {
    for (const std::int32_t kind : {1, 2, 3, 5}) {
        Look({.kind = kind, .values = {u"abc", u"A"}},
             [](MemoryWindow& dialog) { EXPECT_TRUE(dialog.Events().KeyDown(runtime::kKeyEnter, 0, true)); });
    }
    Look({.kind = 4}, [](MemoryWindow& dialog) {
        dialog.Press(runtime::kKeyTab);
        dialog.Press(runtime::kKeyTab);
        EXPECT_TRUE(dialog.Events().KeyDown(runtime::kKeyEnter, 0, true));
        PressEnter(dialog);
        EXPECT_FALSE(dialog.Events().KeyDown(runtime::kKeyEnter, 0, true));
    });
}

TEST_F(Query, OtherCharactersReachTheControls) {
    Look({}, [](MemoryWindow& dialog) {
        for (const char16_t character : {u'a', u'\n', u' ', u'\u3042'}) {
            EXPECT_FALSE(dialog.Events().KeyPress(character));
        }
    });
}

TEST_F(Query, TabWalksInTheDesignsOrder) {
    const auto walk = [this](std::int32_t kind) {
        return WalkOf({.kind = kind, .values = {u"abc", u"A"}, .button = u"More"});
    };
    EXPECT_THAT(walk(1), ElementsAre(u"txtText", u"cmdAccept", u"cmdCancel", u"F_Button", u"txtText"));
    EXPECT_THAT(walk(2), ElementsAre(u"cboCombo", u"cmdAccept", u"cmdCancel", u"F_Button", u"cboCombo"));
    EXPECT_THAT(walk(3), ElementsAre(u"cboDropdown", u"cmdAccept", u"cmdCancel", u"F_Button", u"cboDropdown"));
    EXPECT_THAT(walk(4), ElementsAre(u"cmdAccept", u"cmdCancel", u"txtTextBlock", u"F_Button", u"cmdAccept"));
    EXPECT_THAT(walk(5), ElementsAre(u"cmdAccept", u"cmdCancel", u"cboList", u"F_Button", u"cmdAccept"));
}

TEST_F(Query, ControlAndF1OpenHelpAndNothingElseDoes) {
    services::processValues.helpFilePath = u"D:\\Pelorix\\Marlentine.HLP";
    Look({}, [this](MemoryWindow& dialog) {
        for (const std::int16_t shift : {0, 1, 3, 4, 6}) dialog.Events().KeyUp(kF1, shift);
        dialog.Events().KeyUp(kF1 + 1, runtime::kCtrl);
        dialog.Events().KeyDown(kF1, runtime::kCtrl);
        EXPECT_THAT(memory_.help.calls, IsEmpty());
        dialog.Events().KeyUp(kF1, runtime::kCtrl);
        EXPECT_EQ(memory_.help.calls.size(), 1u);
        EXPECT_TRUE(dialog.visible);
    });
    EXPECT_EQ(memory_.help.calls.at(0).opened, u"D:\\Pelorix\\Marlentine.chm");
}

TEST_F(Query, IsPutOnTopAtEachActivation) {
    Look({}, [](MemoryWindow& dialog) {
        EXPECT_THAT(dialog.topMost, ElementsAre(true));
        dialog.Events().Activated();
        EXPECT_THAT(dialog.topMost, ElementsAre(true, true));
    });
}

TEST_F(Query, PromptIsTheInputsName) {
    for (const std::int32_t kind : {1, 2, 3, 4, 5}) {
        Look({.kind = kind, .prompt = u"Which?"}, [](MemoryWindow& dialog) {
            EXPECT_EQ(dialog.Control(ShownInputs(dialog).at(0)).accessibleName, u"Which?");
        });
    }
}

TEST_F(Query, ShortPromptLaysOutTheLowestForm) {
    // Outer 2000: inner 1625.
    Look({}, [](MemoryWindow& dialog) {
        EXPECT_EQ(dialog.outer.height, 2000);
        EXPECT_EQ(dialog.InnerSize().width, 5595);
        EXPECT_EQ(dialog.Control(u"lblPrompt").bounds, (runtime::Rect{60, 60, 4155, 1190}));
        EXPECT_EQ(dialog.Control(u"txtText").bounds, (runtime::Rect{60, 1250, 5475, 315}));
        EXPECT_EQ(dialog.Control(u"cmdAccept").bounds.top, 210);
        EXPECT_EQ(dialog.Control(u"cmdCancel").bounds.top, 690);
    });
    // Outer 2400 + 495: inner 2520.
    Look({.kind = 5, .button = u"More"}, [](MemoryWindow& dialog) {
        EXPECT_EQ(dialog.outer.height, 2895);
        EXPECT_EQ(dialog.Control(u"F_Button").bounds, (runtime::Rect{120, 2145, 5415, 375}));
        EXPECT_EQ(dialog.Control(u"lblPrompt").bounds, (runtime::Rect{60, 60, 4155, 1185}));
        EXPECT_EQ(dialog.Control(u"cboList").bounds, (runtime::Rect{60, 1245, 5475, 840}));
    });
}

TEST_F(Query, LongPromptOfLinesMakesItHigher) {
    // Ten lines of 60 characters, 5400 wide: 1 + 10 + 3 lines of 195, and 765 of the block: 3495. Inner 3120.
    String prompt(60, u'm');
    for (int i = 1; i < 10; ++i) prompt += u"\r\n" + String(60, u'm');
    Look({.kind = 4, .prompt = prompt}, [](MemoryWindow& dialog) {
        EXPECT_EQ(dialog.outer.height, 3495);
        EXPECT_EQ(dialog.Control(u"lblPrompt").bounds.height, 2235);
        EXPECT_EQ(dialog.Control(u"txtTextBlock").bounds, (runtime::Rect{60, 2295, 5475, 765}));
    });
}

TEST_F(Query, HigherThanTheScreenIsLimited) {
    String prompt;
    for (int i = 0; i < 100; ++i) prompt += u"line\r\n";
    Look({.kind = 3, .prompt = prompt}, [](MemoryWindow& dialog) {
        EXPECT_EQ(dialog.outer.height, 15360 - 1200);
        EXPECT_EQ(dialog.Control(u"cboDropdown").bounds.top, 14160 - 375 - 315 - 60);
    });
}

TEST_F(Query, IsMeasuredInTheFormsFontAndNotInTheLabels) {
    services::processValues.uiFont = {u"Arial", 80, 0};
    Look({.prompt = String(60, u'm')}, [](MemoryWindow& dialog) { EXPECT_EQ(dialog.outer.height, 2000); });
}

TEST_F(Query, IsCentred) {
    // Outer size 5595 + 90 by 2000 on 19200 by 15360.
    Look({}, [](MemoryWindow& dialog) {
        EXPECT_EQ(dialog.outer, (runtime::Rect{(19200 - 5685) / 2.0F, 6680, 5685, 2000}));
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

TEST_F(Query, StateOutlivesTheWindow) {
    Qmxquery dialog;
    std::vector<String> values = {u"", u"A", u"B"};
    std::int32_t index = 1;
    Queue(Clicks(u"cmdAccept"));
    dialog.QUERY(u"Title", u"Name?", values, kList, index, true, u"More");
    EXPECT_FALSE(dialog.IsLoaded());
    EXPECT_EQ(dialog.LayoutHeight(), 2895);
    EXPECT_EQ(dialog.Kind(), 5);
    EXPECT_EQ(dialog.ResultIndex(), 2);
    EXPECT_EQ(dialog.ResultText(), u"B");
    values = {};
    EXPECT_EQ(ErrorOf([&] { dialog.QUERY(u"", u"", values, 9, index, false, u""); }), runtime::kSubscriptOutOfRange);
    EXPECT_EQ(dialog.LayoutHeight(), 2000);
    EXPECT_EQ(dialog.Kind(), 9);
    EXPECT_EQ(dialog.ResultIndex(), 2);
    EXPECT_EQ(dialog.ResultText(), u"");
}

TEST_F(Query, ArrayWithoutItsFirstElementFailsBeforeAnythingShows) {
    Question question{.values = {}, .index = 4};
    EXPECT_EQ(ErrorOf([&] { tests::AskFor(question); }), runtime::kSubscriptOutOfRange);
    EXPECT_EQ(question.index, 4);
    EXPECT_EQ(runtime::LoadedForms().Count(), 0u);
}

TEST_F(Query, IndexOutsideTheListFailsAndLeavesNothingOpen) {
    runtime::Form owner({.name = u"owner", .caption = u"", .inner = {3000, 1500}});
    owner.SetVisible(true);
    for (const std::int32_t kind : {3, 5}) {
        for (const std::int32_t index : {2, -2}) {
            Question question{.kind = kind, .values = {u"abc  ", u"A", u"B"}, .index = index};
            EXPECT_EQ(ErrorOf([&] { tests::AskFor(question); }), runtime::kInvalidPropertyValue);
            EXPECT_EQ(question.index, index);
            EXPECT_EQ(question.values[0], u"abc");
            EXPECT_EQ(runtime::LoadedForms().Count(), 1u);
            EXPECT_TRUE(memory_.windows.Last().enabled);
        }
    }
    EXPECT_EQ(Ask({.values = {u"abc"}}, PressEnter), (Answer{u"abc", 0}));
}

TEST_F(Query, ErrorInsideTheWaitReachesTheCallerWhoseValuesStay) {
    runtime::SetMousePointer(runtime::kHourglassPointer);
    Question question{.values = {u"abc "}, .index = 7};
    Queue([](MemoryWindow&) { throw runtime::Error(runtime::kOverflow); });
    EXPECT_EQ(ErrorOf([&] { tests::AskFor(question); }), runtime::kOverflow);
    EXPECT_EQ(question.values[0], u"abc");
    EXPECT_EQ(question.index, 7);
    EXPECT_EQ(runtime::LoadedForms().Count(), 0u);
    EXPECT_EQ(runtime::MousePointer(), runtime::kHourglassPointer);
}

TEST_F(Query, BusyPointerIsBackAfterwards) {
    runtime::SetMousePointer(runtime::kHourglassPointer);
    Look({}, [](MemoryWindow&) { EXPECT_EQ(runtime::MousePointer(), runtime::kDefaultPointer); });
    EXPECT_EQ(runtime::MousePointer(), runtime::kHourglassPointer);
}

TEST_F(Query, OtherWindowsTakeNoInputMeanwhileAndDoSoBeforeTheDialogGoes) {
    runtime::Form owner({.name = u"owner", .caption = u"", .inner = {3000, 1500}});
    owner.SetVisible(true);
    MemoryWindow& ownerWindow = memory_.windows.Last();
    std::vector<bool> enabledWhenWindowsGo;
    memory_.windows.onWindowGoes = [&] { enabledWhenWindowsGo.push_back(ownerWindow.enabled); };
    Look({}, [&](MemoryWindow& dialog) {
        EXPECT_FALSE(ownerWindow.enabled);
        EXPECT_TRUE(dialog.enabled);
    });
    memory_.windows.onWindowGoes = nullptr;
    EXPECT_THAT(enabledWhenWindowsGo, ElementsAre(true));
}

TEST_F(Query, HiddenWindowTakesNoInputEitherWhenItIsShownMeanwhile) {
    runtime::Form other({.name = u"other", .caption = u"", .inner = {3000, 1500}});
    other.EnsureLoaded();
    MemoryWindow& otherWindow = memory_.windows.Last();
    Look({}, [&](MemoryWindow&) {
        other.SetVisible(true);
        EXPECT_FALSE(otherWindow.enabled);
    });
    EXPECT_TRUE(otherWindow.enabled);
}

TEST_F(Query, QuestionInsideAQuestionHasItsOwnAnswer) {
    Answer inner = kNoAnswer;
    const Answer outer = Ask({.values = {u"outer"}}, [&](MemoryWindow& dialog) {
        inner = Ask({.kind = 3, .values = {u"", u"A", u"B"}, .index = 1}, PressEnter);
        EXPECT_EQ(dialog.Control(u"txtText").text, u"outer");
        Click(dialog, u"cmdAccept");
    });
    EXPECT_EQ(inner, (Answer{u"B", 2}));
    EXPECT_EQ(outer, (Answer{u"outer", 0}));
}

TEST_F(Query, QuestionAfterAnUnloadDoesNotAnswerTheOuterOne) {
    Answer inner = kNoAnswer;
    const Answer outer = Ask({.values = {u"outer"}}, [&](MemoryWindow&) {
        runtime::LoadedForms().At(0).Unload();
        inner = Ask({.values = {u"inner"}}, PressEnter);
    });
    EXPECT_EQ(inner, (Answer{u"inner", 0}));
    EXPECT_EQ(outer, kNoAnswer);
    EXPECT_EQ(runtime::LoadedForms().Count(), 0u);
}

TEST_F(Query, OpenDialogRefusesAnotherQuestionAndIsNotTouched) {
    Qmxquery dialog;
    std::vector<String> values = {u"first"};
    std::int32_t index = 0;
    Queue([&](MemoryWindow& window) {
        std::vector<String> others = {u"second  "};
        std::int32_t other = 5;
        EXPECT_EQ(ErrorOf([&] { dialog.QUERY(u"again", u"again", others, 4, other, true, u"again"); }),
                  runtime::kFormAlreadyDisplayed);
        EXPECT_EQ(others[0], u"second  ");
        EXPECT_EQ(window.caption, u"Title");
        EXPECT_THAT(ShownInputs(window), ElementsAre(u"txtText"));
        PressEnter(window);
    });
    EXPECT_EQ(dialog.QUERY(u"Title", u"Name?", values, kText, index, false, u""), u"first");
    EXPECT_EQ(index, 0);
}

TEST_F(Query, PromptMayBeTheValueItself) {
    std::vector<String> values = {u"Name?" + String(40, u' ')};
    std::int32_t index = 0;
    Queue([](MemoryWindow& dialog) {
        EXPECT_EQ(dialog.Control(u"lblPrompt").text, u"Name?");
        PressEnter(dialog);
    });
    EXPECT_EQ(AskQuery(values[0], values[0], values, kText, index, false, values[0]), u"Name?");
}

TEST_F(Query, TakesCaptionsFromTheLanguage) {
    kernel_.Put(u"LANGUAGEPATH", u"C:\\lang");
    memory_.files.AddFile(u"C:\\lang\\K4TBackProcess.txt", "99177 = OK\n99388 = Abbruch\n");
    Look({}, [](MemoryWindow& dialog) {
        EXPECT_EQ(dialog.Control(u"cmdAccept").text, u"OK");
        EXPECT_EQ(dialog.Control(u"cmdCancel").text, u"Abbruch");
    });
}

}  // namespace
}  // namespace dialogs
