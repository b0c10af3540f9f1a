#include "tools/Suggestion.h"

#include <gtest/gtest.h>

#include <vector>

namespace tools {
namespace {

const std::vector<std::string> kWords = {"host", "register", "unregister", "text", "texts", "doctor"};

std::string NearestOf(std::string_view word) {
    return Nearest(word, kWords).value_or("(none)");
}

TEST(Suggestion, WordWithOneTypingMistake_IsFound) {
    EXPECT_EQ(NearestOf("hosst"), "host");
    EXPECT_EQ(NearestOf("hos"), "host");
    EXPECT_EQ(NearestOf("hast"), "host");
    EXPECT_EQ(NearestOf("registre"), "register");
    EXPECT_EQ(NearestOf("hsot"), "host");
}

TEST(Suggestion, CaseOfLetters_IsIgnored) {
    EXPECT_EQ(NearestOf("DOCTOR"), "doctor");
}

TEST(Suggestion, TwoSimilarCandidates_NearestCandidateIsChosen) {
    EXPECT_EQ(NearestOf("textss"), "texts");
    EXPECT_EQ(NearestOf("unregistre"), "unregister");
}

TEST(Suggestion, OneWordBeginsWithTheOther_IsFound) {
    EXPECT_EQ(NearestOf("registration"), "(none)");
    EXPECT_EQ(NearestOf("regi"), "register");
    EXPECT_EQ(NearestOf("doctorate"), "doctor");
}

TEST(Suggestion, UnlikeWord_GivesNoSuggestion) {
    EXPECT_EQ(NearestOf("x"), "(none)");
    EXPECT_EQ(NearestOf(""), "(none)");
    EXPECT_EQ(NearestOf("somewhere"), "(none)");
    EXPECT_EQ(NearestOf(std::string(1000, 'x')), "(none)");
}

TEST(Suggestion, DidYouMean_IsAClauseForAMessage) {
    EXPECT_EQ(DidYouMean("hosst", kWords), "; did you mean 'host'?");
    EXPECT_EQ(DidYouMean("x", kWords), "");
}

}  // namespace
}  // namespace tools
