// Tests use these types to ask a question with the suite's query dialog and to compare the answer.
#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <optional>
#include <ostream>
#include <string>
#include <vector>

#include "dialogs/Qmxquery.h"

namespace tests {

struct Question {
    std::int32_t kind = dialogs::kText;
    std::vector<runtime::String> values = {u""};
    std::int32_t index = -1;
    runtime::String prompt = u"Name?";
    std::optional<runtime::String> button = std::nullopt;
};

struct Answer {
    runtime::String text;
    std::int32_t index;
    bool operator==(const Answer&) const = default;
};

inline void PrintTo(const Answer& answer, std::ostream* out) {
    constexpr std::size_t kShown = 60;
    *out << '"' << runtime::ToUtf8(runtime::StringView(answer.text).substr(0, kShown)) << "\" (" << answer.text.size()
         << "), " << answer.index;
}

inline const Answer kNoAnswer = {u"", -1};
inline const Answer kButtonAnswer = {u"\x01", -100};

/// Shows the process's shared dialog. The dialog reads `values` and `index` of `question`, and writes the answer to
/// them.
inline Answer AskFor(Question& question) {
    const std::vector<runtime::String> asked = question.values;
    const runtime::String text =
        dialogs::AskQuery(u"Title", question.prompt, question.values, question.kind, question.index,
                          question.button.has_value(), question.button.value_or(u""));
    EXPECT_EQ(question.values.at(0), text);
    for (std::size_t i = 1; i < asked.size(); ++i) EXPECT_EQ(question.values.at(i), asked[i]);
    return {text, question.index};
}

}  // namespace tests
