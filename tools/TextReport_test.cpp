#include "tools/TextReport.h"

#include <gmock/gmock.h>

#include <sstream>

#include "kernel_api/dev/TextFile.h"
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
        missing_ = WriteTextReport(out, catalogue, bytes, locale_);
        return out.str();
    }

    runtime::headless::PlainLocale locale_;
    std::size_t missing_ = 99;
};

TEST_F(TextReport, ShowsEachTextWithItsTranslation) {
    EXPECT_EQ(Report("1 = &Ja\n2 = &Nein\n3 = Pfad:\\s\n"),
              "translated\t1\t[&Yes]\t[&Ja]\tfirst of box\n"
              "translated\t2\t[&No]\t[&Nein]\tsecond of box\n"
              "translated\t3\t[Path: ]\t[Pfad: ]\tcheck\n"
              "3 of 3 identifiers translated\n");
    EXPECT_EQ(missing_, 0u);
}

TEST_F(TextReport, MarksWhatIsMissing) {
    EXPECT_EQ(Report("2 = &Nein\n"),
              "missing\t1\t[&Yes]\t\tfirst of box\n"
              "translated\t2\t[&No]\t[&Nein]\tsecond of box\n"
              "missing\t3\t[Path: ]\t\tcheck\n"
              "1 of 3 identifiers translated\n");
    EXPECT_EQ(missing_, 2u);
}

TEST_F(TextReport, WithoutAFileEverythingIsMissing) {
    EXPECT_THAT(Report(std::nullopt), HasSubstr("\n0 of 3 identifiers translated\n"));
    EXPECT_EQ(missing_, 3u);
}

TEST_F(TextReport, IdentifierWithSeveralUsesCountsOnce) {
    const std::vector<CatalogueText> twice = {{u"9", u"Cancel", u"a", u"a"}, {u"9 ", u"Cancel", u"b", u"b"}};
    EXPECT_THAT(Report("", twice), HasSubstr("missing\t9\t[Cancel]\t\ta\nmissing\t9\t[Cancel]\t\tb\n0 of 1 "));
    EXPECT_EQ(missing_, 1u);
}

TEST_F(TextReport, NamesUnreadableLinesWithTheirReasons) {
    const std::string report = Report("1 = &Ja\n= x\nwords\n1 = b\n2 = \\x\n2 = \xE4\n3 =\n");
    EXPECT_THAT(report, HasSubstr("unreadable\tline 2\thas no identifier before its '='\n"
                                  "unreadable\tline 3\thas no '='\n"
                                  "unreadable\tline 4\thas an identifier that stands above already\n"
                                  "unreadable\tline 5\thas a backslash that is not one of \\n \\t \\s \\\\\n"
                                  "unreadable\tline 6\tis not UTF-8\n"
                                  "unreadable\tline 7\thas no text behind its '='\n"));
    EXPECT_EQ(missing_, 2u);
}

TEST_F(TextReport, NamesIdentifiersThatNobodyAsksFor) {
    EXPECT_THAT(Report("5 = five\n1 = &Ja\n4 = a\\nb\n"), HasSubstr("unknown\t4\t[a␍␊b]\nunknown\t5\t[five]\n"));
}

TEST_F(TextReport, NamesAccessKeysThatClashInADialog) {
    EXPECT_THAT(Report("1 = J&a\n2 = B&Aum\n"), HasSubstr("clash\tbox\tAlt+a\t1, 2\n"));
    EXPECT_THAT(Report("1 = &\xC3\x84ndern\n2 = &\xC3\xA4\n"), HasSubstr("clash\tbox\tAlt+\xC3\xA4\t1, 2\n"));
    EXPECT_THAT(Report("1 = &Non\n"), HasSubstr("clash\tbox\tAlt+n\t1, 2\n"));
    EXPECT_THAT(Report("1 = &Ja\n2 = Nein\n3 = &Jot\\s\n"), Not(HasSubstr("clash")));
}

TEST_F(TextReport, NamesLostBlanksBetweenJoinedTexts) {
    const std::vector<CatalogueText> joined = {{u"1", u"Path: ", u"", u""}, {u"2", u" exists", u"", u""}};
    EXPECT_THAT(Report("1 = Pfad:\n2 = gibt es\n", joined),
                HasSubstr("blank\t1\tmissing at the end\nblank\t2\tmissing at the start\n"));
    EXPECT_THAT(Report("1 = Pfad:\\s\n2 = \\sgibt es\n", joined), Not(HasSubstr("blank")));
    EXPECT_THAT(Report("1 = \xEF\xBC\x9A\n2 = \xE3\x81\xAF\n", joined), Not(HasSubstr("blank")));
}

TEST_F(TextReport, NamesCaptionsThatBreakThePublishedState) {
    const std::vector<CatalogueText> captions = {
        {u"L", u"Process", u"", u"", true}, {u"L", u"Process ", u"", u"", true}, {u"1", u"Path", u"", u"", false}};
    EXPECT_THAT(Report("L = Pelorix, hinten\n1 = a, b\n", captions), HasSubstr("\nstate\tL\thas a comma\n2 of 2"));
    EXPECT_THAT(Report("L = 19\"\n1 = \"\n", captions), HasSubstr("\nstate\tL\thas a quote mark\n2 of 2"));
    EXPECT_THAT(Report("L = a\\nb\n1 = a\\nb\n", captions), HasSubstr("\nstate\tL\thas a line break\n2 of 2"));
    EXPECT_THAT(Report("L = Pelorix 'hinten'; \\t\n", captions), Not(HasSubstr("state")));
    EXPECT_THAT(Report("1 = a,b\n", captions), Not(HasSubstr("state")));
}

TEST_F(TextReport, BlankMayGoWhereOneUseHasNone) {
    const std::vector<CatalogueText> uses = {{u"L", u"Process", u"", u""}, {u"L", u"Process ", u"", u""}};
    EXPECT_THAT(Report("L = Prozess\n", uses), Not(HasSubstr("blank")));
}

TEST(TextTemplate, IsALanguageFileWithTheEnglishTexts) {
    const std::vector<CatalogueText> catalogue = {
        {u"L", u"Caption", u"main form", u""}, {u"L", u"Caption ", u"titles", u""}, {u"1 ", u"Path: ", u"check", u""}};
    std::ostringstream out;
    WriteTextTemplate(out, catalogue);
    EXPECT_THAT(out.str(), HasSubstr("\n\n# [Caption] main form\n# [Caption ] titles\nL = Caption\n"
                                     "\n# [Path: ] check\n1 = Path:\\s\n"));
    const kernel_api::dev::TextFile file(out.str());
    EXPECT_EQ(file.Count(), 2u);
    EXPECT_EQ(file.SkippedLines(), 0u);
    EXPECT_EQ(*file.Find(u"1"), u"Path: ");
}

}  // namespace
}  // namespace tools
