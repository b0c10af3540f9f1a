// Tests the query dialog's answers to buttons and keys for each kind of input.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <ostream>
#include <utility>
#include <vector>

#include "dialogs/Qmxquery_test.h"
#include "runtime/Error.h"
#include "runtime/LoadedForms.h"
#include "services/ProcessValues.h"

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

using Query = QueryTest;

constexpr std::int16_t kF1 = 112;

TEST_F(Query, InitialText_LosesTrailingBlanksAndIsSelected) {
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

TEST_F(Query, Index_CountsItemsOnEntryAndValuesOnReturn) {
    for (const std::int32_t kind : {3, 5}) {
        const Question question{.kind = kind, .values = {u"x", u"A", u"B", u"C"}, .index = 1};
        EXPECT_EQ(Ask(question, Clicks(u"cmdAccept")), (Answer{u"B", 2}));
        EXPECT_EQ(Ask(question, [](MemoryWindow& dialog) { dialog.Events().KeyPress(13); }), (Answer{u"B", 2}));
    }
}

TEST_F(Query, NothingSelected_EmptyTextAndIndexZero) {
    for (const std::int32_t kind : {3, 5}) {
        EXPECT_EQ(Ask({.kind = kind, .values = {u"x", u"A"}}, Clicks(u"cmdAccept")), (Answer{u"", 0}));
        EXPECT_EQ(Ask({.kind = kind, .values = {u"x"}}, Clicks(u"cmdAccept")), (Answer{u"", 0}));
    }
}

TEST_F(Query, KindsWithText_IndexIsIgnored) {
    for (const std::int32_t kind : {0, 1, 2, 4}) {
        EXPECT_EQ(Ask({.kind = kind, .values = {u"abc"}, .index = 77}, Clicks(u"cmdAccept")), (Answer{u"abc", 0}));
    }
}

/// Records during the unload which inputs are visible or have items.
class UnloadRecorder : public Qmxquery {
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

void PrintTo(const UnloadRecorder::Input& input, std::ostream* out) {
    *out << runtime::ToUtf8(input.name) << (input.isVisible ? " visible, " : " hidden, ") << input.items;
}

TEST_F(Query, OnlyAcceptHidesTheInputAndClearsItsItems) {
    const auto leftBy = [this](std::int32_t kind, const User& user) {
        UnloadRecorder dialog;
        std::vector<String> values = {u"x", u"A", u"B"};
        std::int32_t index = 0;
        Queue(user);
        dialog.QUERY(u"Title", u"Name?", values, kind, index, true, u"More");
        return dialog.left;
    };
    using Input = UnloadRecorder::Input;
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

TEST_F(Query, ExtraButtonCancelAndEmptyText_HaveDifferentResults) {
    const Question question{.values = {u"abc"}, .button = u"More"};
    EXPECT_EQ(Ask(question, Clicks(u"cmdCancel")), kNoAnswer);
    EXPECT_EQ(Ask(question, [](MemoryWindow& dialog) { dialog.Events().KeyDown(runtime::kKeyEscape, 0); }), kNoAnswer);
    EXPECT_EQ(Ask(question, Clicks(u"F_Button")), kButtonAnswer);
    EXPECT_EQ(Ask({.values = {u""}}, Clicks(u"cmdAccept")), (Answer{u"", 0}));
}

TEST_F(Query, AnyControlHasTheFocus_EscapeCancels) {
    for (const std::int32_t kind : {1, 2, 3, 4, 5}) {
        for (int tabs = 0; tabs < 4; ++tabs) {
            const auto walkAndLeave = [tabs](MemoryWindow& dialog) {
                for (int i = 0; i < tabs; ++i) dialog.Press(runtime::kKeyTab);
                dialog.Press(runtime::kKeyEscape);
            };
            EXPECT_EQ(Ask({.kind = kind, .values = {u"abc", u"A"}, .button = u"More"}, walkAndLeave), kNoAnswer);
        }
    }
}

TEST_F(Query, ButtonHasTheFocus_EnterPressesIt) {
    const auto enterAfter = [this](int tabs) {
        return Ask({.values = {u"abc"}, .button = u"More"}, [tabs](MemoryWindow& dialog) {
            for (int i = 0; i < tabs; ++i) dialog.Press(runtime::kKeyTab);
            PressEnter(dialog);
        });
    };
    EXPECT_EQ(enterAfter(1), (Answer{u"abc", 0}));
    EXPECT_EQ(enterAfter(2), kNoAnswer);
    EXPECT_EQ(enterAfter(3), kButtonAnswer);
}

TEST_F(Query, ClosedAfterAnEarlierAnswer_IsCancel) {
    EXPECT_EQ(Ask({.values = {u"abc"}}, PressEnter), (Answer{u"abc", 0}));
    EXPECT_EQ(Ask({.values = {u"abc"}}, Close), kNoAnswer);
}

TEST_F(Query, EnterInTheCombo_Accepts) {
    EXPECT_EQ(Ask({.kind = 2, .values = {u"X", u"Y"}}, PressEnter), (Answer{u"X", 0}));
    EXPECT_THAT(memory_.windows.Windows(), IsEmpty());
}

TEST_F(Query, BothHandlersReceiveEnter_AcceptsOnce) {
    class BothHandlersDialog : public Qmxquery {
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

TEST_F(Query, FormIgnoresEnter_ComboAccepts) {
    class IgnoringDialog : public Qmxquery {
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

TEST_F(Query, EnterInTheTextBlock_StartsALine) {
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

TEST_F(Query, CharactersOtherThanEnter_ReachTheControls) {
    Look({}, [](MemoryWindow& dialog) {
        for (const char16_t character : {u'a', u'\n', u' ', u'\u3042'}) {
            EXPECT_FALSE(dialog.Events().KeyPress(character));
        }
    });
}

TEST_F(Query, OnlyCtrlF1OpensHelp) {
    services::Values().helpFilePath = u"D:\\Pelorix\\Marlentine.HLP";
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

TEST_F(Query, Unloaded_ResultsAreKept) {
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

TEST_F(Query, PromptRefersToTheValue_DialogShowsThePrompt) {
    std::vector<String> values = {u"Name?" + String(40, u' ')};
    std::int32_t index = 0;
    Queue([](MemoryWindow& dialog) {
        EXPECT_EQ(dialog.Control(u"lblPrompt").text, u"Name?");
        PressEnter(dialog);
    });
    EXPECT_EQ(AskQuery(values[0], values[0], values, kText, index, false, values[0]), u"Name?");
}

TEST_F(Query, OtherQueryFunctionInstalled_ItsAnswerIsReturned) {
    services::Values().suiteQuery = [](const String& title, const String& prompt, std::vector<String>& values,
                                       std::int32_t kind, std::int32_t& index, bool showButton,
                                       const String& buttonCaption) {
        services::Values().suiteQuery = nullptr;
        EXPECT_TRUE(showButton);
        values[0] = u"R1";
        index = kind;
        return title + prompt + buttonCaption;
    };
    std::vector<String> values = {u""};
    std::int32_t index = 0;
    EXPECT_EQ(AskQuery(u"Title", u"Name?", values, kList, index, true, u"More"), u"TitleName?More");
    EXPECT_EQ(index, kList);
    EXPECT_EQ(values[0], u"R1");
}

}  // namespace
}  // namespace dialogs
