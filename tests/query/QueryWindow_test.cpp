// Tests the layout of the query dialog in pixels, the content of its controls, and its use of system objects. All
// numbers are for 96 DPI. One pixel has 15 twips.
#include <gtest/gtest.h>

#include "runtime/win32/Handle.h"
#include "tests/query/QueryTest.h"
#include "tests/windows/LiveObjects.h"
#include "tests/windows/Places.h"
#include "tests/windows/WindowTexts.h"

namespace tests {
namespace {

using runtime::String;

constexpr std::int32_t kKinds[] = {1, 2, 3, 4, 5};

long InnerHeightOf(HWND dialog) {
    RECT client{};
    GetClientRect(dialog, &client);
    return client.bottom;
}

String Lines(int count, const String& line) {
    String text = line;
    for (int i = 1; i < count; ++i) text += u"\r\n" + line;
    return text;
}

class QueryWindow : public QueryTest {
 protected:
    /// Inspects the open dialog, then closes it.
    static void Look(const Question& question, const std::function<void(HWND dialog)>& look) {
        EXPECT_EQ(Ask(question, {Do(look), Keys({VK_ESCAPE})}), kNoAnswer);
    }
    static Question Of(std::int32_t kind) { return {.kind = kind, .values = {u"abc", u"A", u"B"}, .index = 0}; }
};

TEST_F(QueryWindow, Controls_FollowTheInnerHeight) {
    Question question{.values = {u"abc"}, .button = u"More"};
    Look(question, [](HWND dialog) {
        const long inner = InnerHeightOf(dialog);
        EXPECT_EQ(PlaceIn(dialog, ButtonOf(dialog, L"Accept")), (Place{288, 14, 75, 23}));
        EXPECT_EQ(PlaceIn(dialog, ButtonOf(dialog, L"Cancel")), (Place{288, 46, 75, 23}));
        // The button is 25 pixels high, and the text box is 21 pixels high. The gaps are 4 and 8 pixels.
        EXPECT_EQ(PlaceIn(dialog, ButtonOf(dialog, L"More")), (Place{8, inner - 25, 361, 25}));
        EXPECT_EQ(PlaceIn(dialog, InputOf(dialog)), (Place{4, inner - 21 - 4 - 25, 365, 21}));
        EXPECT_EQ(PlaceIn(dialog, LabelOf(dialog)), (Place{4, 4, 277, inner - 21 - 8 - 25}));
        EXPECT_EQ(TextOf(dialog), u"Title");
        EXPECT_EQ(TextOf(LabelOf(dialog)), u"Name?");
    });
    for (const std::int32_t kind : {2, 3}) {
        Look(Of(kind),
             [](HWND dialog) { EXPECT_EQ(PlaceIn(dialog, InputOf(dialog)).top, InnerHeightOf(dialog) - 21 - 4); });
    }
    Look(Of(4), [](HWND dialog) {
        EXPECT_EQ(PlaceIn(dialog, InputOf(dialog)), (Place{4, InnerHeightOf(dialog) - 51 - 4, 365, 51}));
        EXPECT_EQ(PlaceIn(dialog, LabelOf(dialog)).height, InnerHeightOf(dialog) - 51 - 8);
    });
    Look(Of(5), [](HWND dialog) {
        EXPECT_EQ(PlaceIn(dialog, InputOf(dialog)).top, InnerHeightOf(dialog) - 56 - 4);
        EXPECT_EQ(PlaceIn(dialog, LabelOf(dialog)).height, InnerHeightOf(dialog) - 56 - 8);
    });
}

/// Measures a digit in the form's font, which is not the font of the controls.
long WidthOfADigitInTheFormsFont() {
    const runtime::win32::GdiFont font(
        CreateFontW(-11, 0, 0, 0, FW_NORMAL, FALSE, FALSE, FALSE, DEFAULT_CHARSET, 0, 0, 0, 0, L"MS Sans Serif"));
    const HDC context = GetDC(nullptr);
    const HGDIOBJ before = SelectObject(context, font.Get());
    SIZE size{};
    GetTextExtentPoint32W(context, L"0", 1, &size);
    SelectObject(context, before);
    ReleaseDC(nullptr, context);
    return size.cx;
}

// The height is 8 + 3 + n lines of 195 twips each, and 315 twips for the text box. The prompt has 8 lines. n is the
// width of the widest line divided by 269 pixels, rounded. 269 pixels are the label's width less 120 twips. A digit of
// MS Sans Serif is 6 pixels wide, but a digit of a substitute font may be wider. So the test measures a digit and makes
// the line as long as needed.
TEST_F(QueryWindow, WideLine_MakesTheDialogHigher) {
    const struct {
        long width;
        long height;
    } cases[] = {
        {105, 164},  // 0.4: 11 x 195 + 315 = 2460
        {378, 177},  // 1.4: 12 x 195 + 315 = 2655
        {406, 190},  // 1.5: 13 x 195 + 315 = 2850
        {700, 203}   // 2.6: 14 x 195 + 315 = 3045
    };
    const long digit = WidthOfADigitInTheFormsFont();
    ASSERT_GT(digit, 0);
    for (const auto& [width, height] : cases) {
        const String line(static_cast<std::size_t>((width + digit - 1) / digit), u'0');
        const Question question{.values = {u"abc"}, .prompt = Lines(7, u"line") + u"\r\n" + line};
        const long expected = height;
        Look(question, [expected](HWND dialog) { EXPECT_EQ(PlaceOf(dialog).height, expected); });
    }
}

TEST_F(QueryWindow, LongPrompt_DialogIsAsHighAsTheScreenLessAMargin) {
    const long screen = GetSystemMetrics(SM_CYSCREEN);
    for (const int lines : {100, 2000}) {
        Look({.values = {u"abc"}, .prompt = Lines(lines, u"line"), .button = u"More"}, [screen](HWND dialog) {
            EXPECT_EQ(PlaceOf(dialog).height, screen - 80);
            EXPECT_EQ(PlaceIn(dialog, ButtonOf(dialog, L"More")).top, InnerHeightOf(dialog) - 25);
        });
    }
}

TEST_F(QueryWindow, Dialog_IsCentred) {
    Look({}, ExpectCentred);
}

TEST_F(QueryWindow, UnusualCharacters_AreReturnedUnchanged) {
    const String texts[] = {
        u"\"quoted\" 'text' && a & b %d {ENTER}",
        u"a\tb\t\tc",
        u"\u05D0\u05D1\u05D2 \u202Eabc\u202C \u0645\u0631\u062D\u0628\u0627",
        u"\U0001F600\U0001F468\u200D\U0001F469\u200D\U0001F467",
        u"\u65E5\u672C\u8A9E\u306E\u8CEA\u554F\uFF1F",
        u" leading blanks, and a no-break one at the end\u00A0",
    };
    for (const String& text : texts) {
        for (const std::int32_t kind : kKinds) {
            Question question{.kind = kind, .values = {text, u"other", text}, .index = 1};
            const std::int32_t index = kind == 3 || kind == 5 ? 2 : 0;
            EXPECT_EQ(AskQuickly(question), (Answer{text, index})) << kind << runtime::ToUtf8(text);
        }
    }
}

TEST_F(QueryWindow, LineBreaksOfATextBlock_AreReturnedUnchanged) {
    for (const String& text : {String(u"a\r\nb\r\n\r\nc"), String(u"\r\n"), String(u"a\r\n")}) {
        EXPECT_EQ(AskQuickly({.kind = 4, .values = {text}}), (Answer{text, 0}));
    }
}

TEST_F(QueryWindow, TextOfAMillionCharacters_IsReturned) {
    constexpr std::size_t kMegabyte = 1 << 20;
    String lines;
    while (lines.size() < kMegabyte) lines += String(78, u'x') + u"\r\n";
    EXPECT_EQ(AskQuickly({.kind = 4, .values = {lines}}), (Answer{lines, 0}));
    const String line(kMegabyte, u'm');
    for (const std::int32_t kind : {1, 2}) {
        EXPECT_EQ(AskQuickly({.kind = kind, .values = {line}}), (Answer{line, 0}));
    }
    ExpectNothingIsLeft();
}

TEST_F(QueryWindow, TenThousandItems_AreShown) {
    Question question{.index = 9'999};
    for (int i = 1; i <= 10'000; ++i) question.values.push_back(u"item " + runtime::FromAscii(std::to_string(i)));
    for (const std::int32_t kind : {3, 5}) {
        question.kind = kind;
        EXPECT_EQ(AskQuickly(question), (Answer{u"item 10000", 10'000}));
    }
    question.kind = 2;
    EXPECT_EQ(AskQuickly(question), (Answer{u"", 0}));
}

TEST_F(QueryWindow, Prompt_IsTheInputsAccessibleName) {
    for (const std::int32_t kind : kKinds) {
        Question question = Of(kind);
        question.prompt = u"Which of these? " + runtime::FromAscii(std::to_string(kind));
        Look(question, [&](HWND dialog) {
            const HWND input = InputOf(dialog);
            // The system uses the static text before a control as the control's accessible name.
            const HWND before = GetWindow(input, GW_HWNDPREV);
            EXPECT_TRUE(IsClass(before, L"Static"));
            EXPECT_EQ(TextOf(before), question.prompt);
            if (IsClass(input, L"Edit")) {
                EXPECT_EQ(AccessibleNameOf(input), question.prompt);
            }
        });
    }
}

TEST_F(QueryWindow, ManyQuestions_LeakNoSystemObjects) {
    ExpectNothingStays(400, [this](int round) {
        for (const std::int32_t kind : kKinds) {
            Question question = Of(kind);
            if (round % 2 == 1) question.button = u"More";
            const Answer expected = kind == 3 || kind == 5 ? Answer{u"A", 1} : Answer{u"abc", 0};
            ASSERT_EQ(AskQuickly(question), expected);
        }
    });
    ExpectNothingIsLeft();
}

}  // namespace
}  // namespace tests
