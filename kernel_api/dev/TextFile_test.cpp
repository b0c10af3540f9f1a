#include "kernel_api/dev/TextFile.h"

#include <gtest/gtest.h>

namespace kernel_api::dev {
namespace {

using runtime::String;

/// "(none)" when there is no such text.
String TextIn(const TextFile& file, runtime::StringView identifier) {
    const String* text = file.Find(identifier);
    return text ? *text : u"(none)";
}

TEST(TextFile, HoldsOneTextALine) {
    const TextFile file("39171 = &Ja\n39172=&Nein\r\nLOC = Hintergrund");
    EXPECT_EQ(TextIn(file, u"39171"), u"&Ja");
    EXPECT_EQ(TextIn(file, u"39172"), u"&Nein");
    EXPECT_EQ(TextIn(file, u"LOC"), u"Hintergrund");
    EXPECT_EQ(TextIn(file, u"1"), u"(none)");
    EXPECT_EQ(file.Count(), 3u);
    EXPECT_EQ(file.SkippedLines(), 0u);
}

TEST(TextFile, BlanksAroundIdentifierAndTextDoNotCount) {
    const TextFile file(" \t99388 \t=\t Abbrechen \t\n");
    EXPECT_EQ(TextIn(file, u"99388"), u"Abbrechen");
    EXPECT_EQ(TextIn(file, u"99388 "), u"Abbrechen");
    EXPECT_EQ(TextIn(file, u"  99388"), u"Abbrechen");
}

TEST(TextFile, EscapesStandForBlanksBreaksAndBackslashes) {
    const TextFile file("1 = Pfad:\\s\n2 = a\\nb\n3 = \\t\\\\n\n");
    EXPECT_EQ(TextIn(file, u"1"), u"Pfad: ");
    EXPECT_EQ(TextIn(file, u"2"), u"a\r\nb");
    EXPECT_EQ(TextIn(file, u"3"), u"\t\\n");
}

TEST(TextFile, CommentsAndEmptyLinesSayNothing) {
    const TextFile file("# 1 = comment\n\n   \n  # more\n2 = a # not a comment\n");
    EXPECT_EQ(file.Count(), 1u);
    EXPECT_EQ(TextIn(file, u"2"), u"a # not a comment");
    EXPECT_EQ(file.SkippedLines(), 0u);
}

TEST(TextFile, TextMayBeEmptyAndHoldEqualsSigns) {
    const TextFile file("1 =\n2 = a=b\n");
    EXPECT_EQ(TextIn(file, u"1"), u"");
    EXPECT_EQ(TextIn(file, u"2"), u"a=b");
}

TEST(TextFile, LinesThatCannotBeReadAreSkippedAndCounted) {
    const TextFile file("no equals sign\n= no identifier\n1 = bad \\x escape\n2 = ends in \\\n3 = \xFF\n4 = good\n");
    EXPECT_EQ(file.SkippedLines(), 5u);
    EXPECT_EQ(file.Count(), 1u);
    EXPECT_EQ(TextIn(file, u"4"), u"good");
}

TEST(TextFile, FirstOfTwoTextsCounts) {
    const TextFile file("1 = first\n1 = second\n");
    EXPECT_EQ(TextIn(file, u"1"), u"first");
    EXPECT_EQ(file.SkippedLines(), 1u);
}

TEST(TextFile, ByteOrderMarkDoesNotCount) {
    EXPECT_EQ(TextIn(TextFile("\xEF\xBB\xBF"
                              "1 = a\n"),
                     u"1"),
              u"a");
}

TEST(TextFile, KeepsAnyCharacters) {
    const TextFile file("1 = \xE3\x81\xAF\xE3\x81\x84(&Y) \xF0\x9F\x98\x80 \xEF\xBF\xBD\n");
    EXPECT_EQ(TextIn(file, u"1"), u"\u306F\u3044(&Y) \U0001F600 \uFFFD");
}

TEST(TextFile, TruncatedAtEveryByteNeverFails) {
    const std::string whole = "\xEF\xBB\xBF# c\n1 = \xE3\x81\xAF\\s\n2 = b\n";
    for (std::size_t length = 0; length <= whole.size(); ++length) {
        const TextFile file(std::string_view(whole).substr(0, length));
        EXPECT_LE(file.Count(), 2u);
    }
}

TEST(TextFile, EmptyFileHasNoTexts) {
    EXPECT_EQ(TextFile("").Count(), 0u);
    EXPECT_EQ(TextFile().Count(), 0u);
}

}  // namespace
}  // namespace kernel_api::dev
