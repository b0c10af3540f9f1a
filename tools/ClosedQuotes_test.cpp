#include "tools/ClosedQuotes.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace tools {
namespace {

std::string ComplaintAbout(runtime::StringView text) {
    try {
        RequireClosedQuotes(text);
    } catch (const std::runtime_error& error) {
        return error.what();
    }
    return "(none)";
}

TEST(RequireClosedQuotes, TextThatCanBeSplit_IsAccepted) {
    for (const runtime::StringView text : {u"", u"A,B,", u"\"A,B\",C", u"\"A\",", u"A\"B", u"A,\""}) {
        EXPECT_EQ(ComplaintAbout(text), "(none)");
    }
}

TEST(RequireClosedQuotes, UnclosedQuote_FieldIsNamed) {
    EXPECT_EQ(ComplaintAbout(u"\"A,B"), "field 1, 'A,B', opens with a quote that is not closed; close it");
    EXPECT_EQ(ComplaintAbout(u"A,\"B\",\"C,D"), "field 3, 'C,D', opens with a quote that is not closed; close it");
}

}  // namespace
}  // namespace tools
