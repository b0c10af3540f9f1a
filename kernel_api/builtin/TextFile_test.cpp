#include "kernel_api/builtin/TextFile.h"

#include <gmock/gmock.h>

#include <map>
#include <utility>
#include <vector>

namespace kernel_api::builtin {
namespace {

using runtime::String;

/// Returns the text under `identifier`; "(none)" if there is no text.
String TextIn(const TextFile& file, runtime::StringView identifier) {
    return String(file.Find(identifier).value_or(u"(none)"));
}

TEST(TextFile, EachLine_IsOneText) {
    const TextFile file("39171 = &Ja\n39172=&Nein\r\nLOC = Hintergrund");
    EXPECT_EQ(TextIn(file, u"39171"), u"&Ja");
    EXPECT_EQ(TextIn(file, u"39172"), u"&Nein");
    EXPECT_EQ(TextIn(file, u"LOC"), u"Hintergrund");
    EXPECT_EQ(TextIn(file, u"1"), u"(none)");
    EXPECT_EQ(file.Count(), 3u);
    EXPECT_EQ(file.SkippedLines(), 0u);
}

TEST(TextFile, BlanksAroundIdentifierAndTextAreRemoved) {
    const TextFile file(" \t99388 \t=\t Abbrechen \t\n");
    EXPECT_EQ(TextIn(file, u"99388"), u"Abbrechen");
    EXPECT_EQ(TextIn(file, u"99388 "), u"Abbrechen");
    EXPECT_EQ(TextIn(file, u"  99388"), u"Abbrechen");
}

TEST(TextFile, Escapes_BecomeBlanksBreaksAndBackslashes) {
    const TextFile file("1 = Pfad:\\s\n2 = a\\nb\n3 = \\t\\\\n\n");
    EXPECT_EQ(TextIn(file, u"1"), u"Pfad: ");
    EXPECT_EQ(TextIn(file, u"2"), u"a\r\nb");
    EXPECT_EQ(TextIn(file, u"3"), u"\t\\n");
}

TEST(TextFile, CommentsAndEmptyLinesAreIgnored) {
    const TextFile file("# 1 = comment\n\n   \n  # more\n2 = a # not a comment\n");
    EXPECT_EQ(file.Count(), 1u);
    EXPECT_EQ(TextIn(file, u"2"), u"a # not a comment");
    EXPECT_EQ(file.SkippedLines(), 0u);
}

TEST(TextFile, TextWithEqualsSigns_IsReadWhole) {
    const TextFile file("1 = a=b\n2 ==\n");
    EXPECT_EQ(TextIn(file, u"1"), u"a=b");
    EXPECT_EQ(TextIn(file, u"2"), u"=");
}

TEST(TextFile, LineWithoutText_IsSkippedAndLaterTextIsUsed) {
    const TextFile file("1 =\n2 = \t \n2 = b\n3 = \\s\n4=");
    EXPECT_EQ(TextIn(file, u"1"), u"(none)");
    EXPECT_EQ(TextIn(file, u"2"), u"b");
    EXPECT_EQ(TextIn(file, u"3"), u" ");
    EXPECT_EQ(TextIn(file, u"4"), u"(none)");
    EXPECT_EQ(file.SkippedLines(), 3u);
}

TEST(TextFile, SameIdentifierTwice_FirstTextIsUsed) {
    const TextFile file("1 = first\n1 = second\n");
    EXPECT_EQ(TextIn(file, u"1"), u"first");
    EXPECT_EQ(file.SkippedLines(), 1u);
}

TEST(TextFile, ByteOrderMarkIsIgnored) {
    EXPECT_EQ(TextIn(TextFile("\xEF\xBB\xBF"
                              "1 = a\n"),
                     u"1"),
              u"a");
}

TEST(TextFile, KeepsAnyCharacters) {
    const TextFile file("1 = \xE3\x81\xAF\xE3\x81\x84(&Y) \xF0\x9F\x98\x80 \xEF\xBF\xBD\n");
    EXPECT_EQ(TextIn(file, u"1"), u"\u306F\u3044(&Y) \U0001F600 \uFFFD");
}

TEST(TextFile, CrOrLfOrBoth_EndALine) {
    const TextFile file("1 = a\r2 = b\n3 = c\r\n\r4 = d");
    EXPECT_EQ(TextIn(file, u"1"), u"a");
    EXPECT_EQ(TextIn(file, u"2"), u"b");
    EXPECT_EQ(TextIn(file, u"3"), u"c");
    EXPECT_EQ(TextIn(file, u"4"), u"d");
}

TEST(TextFile, ReportsSkippedLinesWithTheirFaults) {
    std::vector<std::pair<std::size_t, LineFault>> faults;
    const TextFile file("# c\r\n1 = a\r\nwords\n= b\n\n1 = c\r2 = \\x\n3 = \xE4\n4 = a\\\n5 =\n",
                        [&faults](std::size_t line, LineFault fault) { faults.emplace_back(line, fault); });
    using Fault = std::pair<std::size_t, LineFault>;
    EXPECT_THAT(faults, testing::ElementsAre(Fault{3, LineFault::kNoEqualsSign}, Fault{4, LineFault::kNoIdentifier},
                                             Fault{6, LineFault::kTwice}, Fault{7, LineFault::kUnknownEscape},
                                             Fault{8, LineFault::kNotUtf8}, Fault{9, LineFault::kUnknownEscape},
                                             Fault{10, LineFault::kNoText}));
}

TEST(TextFile, TruncatedFile_KeepsTheTextsBeforeTheCut) {
    const std::string whole = "\xEF\xBB\xBF# c\n1 = \xE3\x81\xAF\\s\n22 = b\\n\n";
    for (std::size_t length = 0; length <= whole.size(); ++length) {
        const TextFile file(std::string_view(whole).substr(0, length));
        const String first = TextIn(file, u"1");
        // The text's character is complete at length 14. At length 15, the file ends within the escape after that
        // character.
        const String expected = length == 14 ? u"\u306F" : length < 16 ? u"(none)" : u"\u306F ";
        EXPECT_EQ(first, expected) << length;
        EXPECT_EQ(TextIn(file, u"2"), u"(none)") << length;
    }
}

TEST(TextFile, Utf16File_HasNoTexts) {
    std::string little = "\xFF\xFE";
    std::string big = "\xFE\xFF";
    for (const char c : std::string("\r\n1 = a\r\n39171 = &Ja\r\n")) {
        little.append({c, '\0'});
        big.append({'\0', c});
    }
    for (const std::string& bytes : {little, big, little.substr(2), big.substr(2)}) {
        EXPECT_EQ(TextFile(bytes).Count(), 0u);
        EXPECT_GE(TextFile(bytes).SkippedLines(), 2u);
    }
}

TEST(TextFile, OtherEncoding_OnlyAsciiLinesAreRead) {
    const TextFile latin1("1 = &Nein\n2 = &\xC4ndern\n3 = Abl\xF6sen\n");
    EXPECT_EQ(TextIn(latin1, u"1"), u"&Nein");
    EXPECT_EQ(latin1.Count(), 1u);
    const TextFile shiftJis("1 = OK\n2 = \x82\xCD\x82\xA2(&Y)\n3 = \x95\x5C\x8E\xA6\n");
    EXPECT_EQ(TextIn(shiftJis, u"1"), u"OK");
    EXPECT_EQ(shiftJis.Count(), 1u);
}

TEST(TextFile, FindsEachOfManyTexts) {
    std::string lines;
    for (int i = 0; i < 100'000; ++i) lines += std::to_string(i) + " = text " + std::to_string(i) + "\n";
    const TextFile file(lines);
    EXPECT_EQ(file.Count(), 100'000u);
    for (int i = 0; i < 100'000; ++i) {
        const String number = runtime::FromAscii(std::to_string(i));
        ASSERT_EQ(TextIn(file, number), u"text " + number);
    }
    EXPECT_EQ(TextIn(file, u"100000"), u"(none)");
}

TEST(TextFile, All_HasEachTextOnce) {
    const TextFile file("2 = b\n1 = a\n2 = c\nLOC = x y\n");
    std::map<String, String> texts;
    for (const auto& [identifier, text] : file.All()) {
        EXPECT_TRUE(texts.emplace(identifier, text).second);
    }
    EXPECT_EQ(texts, (std::map<String, String>{{u"1", u"a"}, {u"2", u"b"}, {u"LOC", u"x y"}}));
}

TEST(EscapeText, EscapedTextIsReadBackUnchanged) {
    for (const String& text : {String(u"Path: "), String(u" not available"), String(u" "), String(u"  a  b  "),
                               String(u"a\r\nb\tc\\n"), String(u"\\"), String(u"a = # b")}) {
        const TextFile file("1 = " + runtime::ToUtf8(EscapeText(text)) + "\n");
        EXPECT_EQ(TextIn(file, u"1"), text);
    }
    EXPECT_EQ(EscapeText(u"Path: "), u"Path:\\s");
}

TEST(EscapeText, EachKindOfLineEnd_BecomesTheSameEscape) {
    EXPECT_EQ(EscapeText(u"a\nb\rc\r\nd\n\re\r"), u"a\\nb\\nc\\nd\\n\\ne\\n");
}

TEST(TextFile, EmptyFileHasNoTexts) {
    EXPECT_EQ(TextFile("").Count(), 0u);
    EXPECT_EQ(TextFile().Count(), 0u);
}

}  // namespace
}  // namespace kernel_api::builtin
