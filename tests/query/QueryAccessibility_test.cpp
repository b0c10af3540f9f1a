// Tests what the query dialog reports to screen readers. Each kind of dialog is tested.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/query/QueryTest.h"
#include "tests/windows/Accessible.h"
#include "tests/windows/WindowTexts.h"

namespace tests {
namespace {

using ::testing::ElementsAre;

class QueryAccessibility : public QueryTest {
 protected:
    static std::vector<std::string> ElementsOf(std::int32_t kind) {
        std::vector<std::string> elements;
        const Question question{
            .kind = kind, .values = {u"abc", u"A", u"B"}, .index = 1, .prompt = u"Which side?", .button = u"&More..."};
        EXPECT_EQ(Ask(question, {Do([&](HWND dialog) {
                                     SetFocus(InputOf(dialog));
                                     elements = AccessibleElementsOf(dialog);
                                 }),
                                 Keys({VK_ESCAPE})}),
                  kNoAnswer);
        return elements;
    }
    /// Matches the elements of a dialog. Only the element `input` depends on the kind.
    static auto With(const std::string& input) {
        return ElementsAre("dialog [Title] description [Which side?]", "static text [Which side?]", "Button [Accept]",
                           "Button [Cancel]", input, "Button [More...]");
    }
};

// A text box has the prompt as its name. On Wine, the other input controls do not have this name. On Windows, they get
// it from a hidden label. QueryWindow_test checks this label.
TEST_F(QueryAccessibility, ScreenReader_GetsRoleNameStateAndValueOfEachKind) {
    EXPECT_THAT(ElementsOf(1), With("text [Which side?] focused value [abc]"));
    EXPECT_THAT(ElementsOf(2), With("ComboBox [abc]"));
    EXPECT_THAT(ElementsOf(3), With("ComboBox [B] focused"));
    EXPECT_THAT(ElementsOf(4), With("text [Which side?] focused value [abc]"));
    EXPECT_THAT(ElementsOf(5), With("ListBox [] focused"));
}

}  // namespace
}  // namespace tests
