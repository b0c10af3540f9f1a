#include "tools/TextReport.h"

#include <gmock/gmock.h>

#include <sstream>

#include "kernel_api/builtin/TextFile.h"
#include "runtime/headless/PlainLocale.h"

namespace tools {
namespace {

using host::CatalogueText;
using testing::HasSubstr;
using testing::Not;

const std::vector<CatalogueText>& Box() {
    static const std::vector<CatalogueText> texts = {
        {u"1", u"&Yes", u"first of box", u"box"},
        {u"2 ", u"&No", u"second of box", u"box"},
        {u"3", u"Path: ", u"check", u""},
    };
    return texts;
}

class TextReport : public testing::Test {
 protected:
    std::string Report(const std::optional<std::string>& bytes, std::span<const CatalogueText> catalogue = Box()) {
        std::ostringstream out;
        std::optional<LanguageFileText> file;
        if (bytes) file = LanguageFileText{"F", *bytes};
        counts_ = WriteTextReport(out, catalogue, file, locale_, [](runtime::StringView caption) {
            return static_cast<runtime::Twips>(caption.size() * 100);
        });
        return out.str();
    }

    runtime::headless::PlainLocale locale_;
    TextReportCounts counts_{99, 99};
};

TEST_F(TextReport, TranslatedText_IsShownWithTheTranslation) {
    EXPECT_EQ(Report("1 = &Ja\n2 = &Nein\n3 = Pfad:\\s\n"),
              "translated\t1\t[&Yes]\t[&Ja]\tfirst of box\n"
              "translated\t2\t[&No]\t[&Nein]\tsecond of box\n"
              "translated\t3\t[Path: ]\t[Pfad: ]\tcheck\n"
              "3 of 3 identifiers translated\n");
    EXPECT_EQ(counts_.missing, 0u);
}

TEST_F(TextReport, MissingTranslation_IsMarked) {
    EXPECT_EQ(Report("2 = &Nein\n"),
              "missing\t1\t[&Yes]\t\tfirst of box\n"
              "translated\t2\t[&No]\t[&Nein]\tsecond of box\n"
              "missing\t3\t[Path: ]\t\tcheck\n"
              "1 of 3 identifiers translated\n");
    EXPECT_EQ(counts_.missing, 2u);
}

TEST_F(TextReport, NoFile_EveryTextIsMissing) {
    EXPECT_THAT(Report(std::nullopt), HasSubstr("\n0 of 3 identifiers translated\n"));
    EXPECT_EQ(counts_.missing, 3u);
}

TEST_F(TextReport, IdentifierWithSeveralUses_CountsOnce) {
    const std::vector<CatalogueText> twice = {{u"9", u"Cancel", u"a", u"a"}, {u"9 ", u"Cancel", u"b", u"b"}};
    EXPECT_THAT(Report("", twice), HasSubstr("missing\t9\t[Cancel]\t\ta\nmissing\t9\t[Cancel]\t\tb\n0 of 1 "));
    EXPECT_EQ(counts_.missing, 1u);
}

TEST_F(TextReport, UnreadableLine_IsReportedWithTheReason) {
    const std::string report = Report("1 = &Ja\n= x\nwords\n1 = b\n2 = \\x\n2 = \xE4\n3 =\n");
    EXPECT_THAT(report, HasSubstr("unreadable\tF:2\thas no identifier before its '='\n"
                                  "unreadable\tF:3\thas no '='\n"
                                  "unreadable\tF:4\trepeats an identifier of an earlier line\n"
                                  "unreadable\tF:5\thas a backslash that is not one of \\n \\t \\s \\\\\n"
                                  "unreadable\tF:6\tis not UTF-8\n"
                                  "unreadable\tF:7\thas no text behind its '='\n"));
    EXPECT_EQ(counts_.missing, 2u);
}

TEST_F(TextReport, UnknownIdentifier_IsReported) {
    EXPECT_THAT(Report("5 = five\n1 = &Ja\n4 = a\\nb\n"),
                HasSubstr("unknown\tF:3\t4\t[a␍␊b]\nunknown\tF:1\t5\t[five]\n"));
}

TEST_F(TextReport, AccessKeyUsedTwiceInADialog_IsReported) {
    EXPECT_THAT(Report("1 = J&a\n2 = B&Aum\n"), HasSubstr("clash\tF:2\tbox\tAlt+a\t1, 2\n"));
    EXPECT_THAT(Report("1 = &\xC3\x84ndern\n2 = &\xC3\xA4\n"), HasSubstr("clash\tF:2\tbox\tAlt+\xC3\xA4\t1, 2\n"));
    EXPECT_THAT(Report("1 = &Non\n"), HasSubstr("clash\tF:1\tbox\tAlt+n\t1, 2\n"));
    EXPECT_THAT(Report("1 = &Ja\n2 = Nein\n3 = &Jot\\s\n"), Not(HasSubstr("clash")));
}

TEST_F(TextReport, LostBlankBetweenJoinedTexts_IsReported) {
    const std::vector<CatalogueText> joined = {{u"1", u"Path: ", u"", u""}, {u"2", u" exists", u"", u""}};
    EXPECT_THAT(Report("1 = Pfad:\n2 = gibt es\n", joined),
                HasSubstr("blank\tF:1\t1\tmissing at the end\nblank\tF:2\t2\tmissing at the start\n"));
    EXPECT_THAT(Report("1 = Pfad:\\s\n2 = \\sgibt es\n", joined), Not(HasSubstr("blank")));
    EXPECT_THAT(Report("1 = \xEF\xBC\x9A\n2 = \xE3\x81\xAF\n", joined), Not(HasSubstr("blank")));
}

TEST_F(TextReport, CaptionThatBreaksTheStateRecord_IsReported) {
    const std::vector<CatalogueText> captions = {{u"L", u"Process", u"", u"", 0, true},
                                                 {u"L", u"Process ", u"", u"", 0, true},
                                                 {u"1", u"Path", u"", u"", 0, false}};
    EXPECT_THAT(Report("L = Pelorix, hinten\n1 = a, b\n", captions), HasSubstr("\nstate\tF:1\tL\thas a comma\n2 of 2"));
    EXPECT_THAT(Report("L = 19\"\n1 = \"\n", captions), HasSubstr("\nstate\tF:1\tL\thas a quote mark\n2 of 2"));
    EXPECT_THAT(Report("L = a\\nb\n1 = a\\nb\n", captions), HasSubstr("\nstate\tF:1\tL\thas a line break\n2 of 2"));
    EXPECT_THAT(Report("L = Pelorix 'hinten'; \\t\n", captions), Not(HasSubstr("state")));
    EXPECT_THAT(Report("1 = a,b\n", captions), Not(HasSubstr("state")));
}

TEST_F(TextReport, PublishedCaptionOutsideTheCodePage_IsShownAsModulesReadIt) {
    const std::vector<CatalogueText> captions = {{u"L", u"Process", u"form", u"", 0, true},
                                                 {u"1", u"Path", u"check", u"", 0, false}};
    // A Western code page has U+20AC but not U+65E5.
    EXPECT_EQ(Report("L = a\xE6\x97\xA5\n1 = \xE6\x97\xA5\n", captions),
              "translated\tL\t[Process]\t[a\xE6\x97\xA5]\tform\tpublished as [a?]\n"
              "translated\t1\t[Path]\t[\xE6\x97\xA5]\tcheck\n"
              "2 of 2 identifiers translated\n");
    EXPECT_EQ(counts_, (TextReportCounts{0, 0}));
    EXPECT_THAT(Report("L = \xE2\x82\xAC\n", captions), Not(HasSubstr("published as")));
}

TEST_F(TextReport, CaptionWithoutTheAccessKey_IsReported) {
    EXPECT_THAT(Report("\n1 = Ja\n2 = Nein && aber\n"),
                HasSubstr("key\tF:2\t1\thas no access key; put '&' before a letter\n"
                          "key\tF:3\t2\thas no access key"));
    EXPECT_EQ(counts_.findings, 2u);
    const std::vector<CatalogueText> keyless = {{u"1", u"Cancel", u"", u"box"}, {u"2", u"A && B", u"", u"box"}};
    EXPECT_THAT(Report("1 = Abbrechen\n2 = A\n", keyless), Not(HasSubstr("key\t")));
}

TEST_F(TextReport, CaptionTooWideForItsButton_IsReported) {
    const std::vector<CatalogueText> buttons = {{u"1", u"OK", u"", u"box", 1125}, {u"2", u"Label", u"", u"box"}};
    EXPECT_THAT(Report("1 = Einverstanden\n2 = Einverstanden\n", buttons),
                HasSubstr("wide\tF:1\t1\tis 87 pixels wide, and its button has room for 69\n2 of 2"));
    EXPECT_THAT(Report("1 = Elf Zeichen\n", buttons), HasSubstr("wide"));
    EXPECT_THAT(Report("1 = Zehn Zeich\n", buttons), Not(HasSubstr("wide")));
}

TEST_F(TextReport, Utf16File_IsReportedWithAdvice) {
    const std::string utf16("1\0 \0=\0 \0J\0a\0\n\0", 14);
    for (const std::string& bytes : {utf16, "\xFF\xFE" + utf16,
                                     std::string("\xFE\xFF\0"
                                                 "1\0=",
                                                 6)}) {
        const std::string report = Report(bytes);
        EXPECT_THAT(report, HasSubstr("encoding\tF\tis UTF-16; save it as UTF-8\n0 of 3"));
        EXPECT_THAT(report, Not(HasSubstr("unreadable")));
        EXPECT_EQ(counts_.findings, 1u);
    }
}

TEST_F(TextReport, Problems_AreCounted) {
    Report("1 = &Ja\n2 = &Nein\n3 = Pfad:\\s\n");
    EXPECT_EQ(counts_, (TextReportCounts{0, 0}));
    Report("1 = &Ja\n2 = &Jein\n3 = Pfad:\nwords\n");
    EXPECT_EQ(counts_, (TextReportCounts{0, 3}));
}

TEST_F(TextReport, BlankThatOneUseDoesNotNeed_MayBeMissing) {
    const std::vector<CatalogueText> uses = {{u"L", u"Process", u"", u""}, {u"L", u"Process ", u"", u""}};
    EXPECT_THAT(Report("L = Prozess\n", uses), Not(HasSubstr("blank")));
}

TEST(TextTemplate, Template_IsALanguageFileWithTheEnglishTexts) {
    const std::vector<CatalogueText> catalogue = {
        {u"L", u"Caption", u"main form", u""}, {u"L", u"Caption ", u"titles", u""}, {u"1 ", u"Path: ", u"check", u""}};
    std::ostringstream out;
    WriteTextTemplate(out, catalogue);
    EXPECT_THAT(out.str(), HasSubstr("\n\n# [Caption] main form\n# [Caption ] titles\nL = Caption\n"
                                     "\n# [Path: ] check\n1 = Path:\\s\n"));
    const kernel_api::builtin::TextFile file(out.str());
    EXPECT_EQ(file.Count(), 2u);
    EXPECT_EQ(file.SkippedLines(), 0u);
    EXPECT_EQ(*file.Find(u"1"), u"Path: ");
}

TEST_F(TextReport, Direction_IsCheckedButNotListed) {
    const std::string texts = "1 = &Ja\n2 = &Nein\n3 = Pfad:\\s\n";
    Report(texts + "direction = rtl\n");
    EXPECT_EQ(counts_, (TextReportCounts{0, 0}));
    Report(texts + "direction = ltr\n");
    EXPECT_EQ(counts_, (TextReportCounts{0, 0}));
    EXPECT_THAT(Report("# Wrong\n" + texts + "direction = RTL\n"),
                HasSubstr("direction\tF:5\tis [RTL]; only ltr and rtl are known\n"));
    EXPECT_EQ(counts_, (TextReportCounts{0, 1}));
}

}  // namespace
}  // namespace tools
