#include "tools/IniReport.h"

#include <gmock/gmock.h>

#include "runtime/headless/PlainLocale.h"

namespace tools {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

IniReport ReportOn(runtime::StringView text) {
    runtime::headless::PlainLocale locale;
    return ReportOnIni(text, locale);
}

/// Returns the only remark about `text`: the line, the problem and the advice. If there is not exactly one remark,
/// returns the number of remarks, for example "0 remarks".
std::string RemarkOn(runtime::StringView text) {
    const IniReport report = ReportOn(text);
    if (report.remarks.size() != 1) return std::to_string(report.remarks.size()) + " remarks";
    const IniRemark& remark = report.remarks.front();
    return std::to_string(remark.line) + ": " + remark.what + "; " + remark.advice;
}

TEST(IniReport, KnownSettings_AreListed) {
    const IniReport report =
        ReportOn(u"; set-up\r\n[MARLENTO]\r\njobdir=D:\\JOB\r\nVer = 1\r\n[Other]\r\nLibDir=x\r\n");
    EXPECT_THAT(report.taken, ElementsAre("JobDir", "Ver"));
    EXPECT_THAT(report.notTaken, IsEmpty());
    EXPECT_THAT(report.remarks, IsEmpty());
}

TEST(IniReport, UnknownKey_IsListedWithoutARemark) {
    const IniReport report = ReportOn(u"[Marlento]\nPlotter=A0\n");
    EXPECT_THAT(report.taken, IsEmpty());
    EXPECT_THAT(report.notTaken, ElementsAre("Plotter"));
    EXPECT_THAT(report.remarks, IsEmpty());
}

TEST(IniReport, KeySimilarToASetting_GetsARemark) {
    EXPECT_EQ(
        RemarkOn(u"[Marlento]\nJobdirectory=D:\\\n"),
        "2: 'Jobdirectory' is not a setting that the component reads; did you mean 'JobDir'?; rename it to JobDir");
    EXPECT_THAT(RemarkOn(u"[Marlento]\nLibDri=D:\\\n"), HasSubstr("rename it to LibDir"));
}

TEST(IniReport, SectionWithASimilarName_GetsARemark) {
    EXPECT_EQ(RemarkOn(u"[Marlentine]\nJobDir=D:\\\n"),
              "1: section [Marlentine] is not read; the component reads [Marlento]; name the section [Marlento]");
    EXPECT_EQ(RemarkOn(u"[Marlentine]\nJobDir=D:\\\n[Marlento]\n"), "0 remarks");
    EXPECT_EQ(RemarkOn(u"[Plotter]\nJobDir=D:\\\n"), "0 remarks");
}

TEST(IniReport, UnclosedSection_GetsARemark) {
    EXPECT_EQ(RemarkOn(u"[Marlento\n"), "1: '[Marlento' has no ']' and is ignored; add the ']'");
}

TEST(IniReport, LinesBeforeTheFirstSection_GetOneRemark) {
    EXPECT_EQ(RemarkOn(u"JobDir=D:\\\nLibDir=E:\\\n[Marlento]\n"),
              "1: 'JobDir=D:\\' is above the first section and is ignored; put [Marlento] above it");
}

TEST(IniReport, LinesThatAreNotSettings_GetARemark) {
    EXPECT_THAT(RemarkOn(u"[Marlento]\r\n\r\nJobDir D:\\JOB\r\n"), HasSubstr("3: 'JobDir D:\\JOB' has no '='"));
    EXPECT_THAT(RemarkOn(u"[Marlento]\n= D:\\JOB\n"), HasSubstr("2: '= D:\\JOB' has no name before the '='"));
}

TEST(IniReport, RepeatedSetting_GetsARemark) {
    EXPECT_THAT(RemarkOn(u"[Marlento]\nVer=1\nVER=2\n"), HasSubstr("3: 'Ver' is set a second time"));
}

TEST(IniReport, UnclosedQuote_GetsARemark) {
    EXPECT_THAT(RemarkOn(u"[Marlento]\nJobDir=\"D:\\JOB\n"),
                HasSubstr("'JobDir' starts with a quote but does not end"));
    EXPECT_THAT(RemarkOn(u"[Marlento]\nJobDir='\n"), HasSubstr("'JobDir' starts with a quote but does not end"));
    EXPECT_THAT(RemarkOn(u"[Marlento]\nJobDir=\"D:\\JOB\" \"x\n"), HasSubstr("'JobDir' starts with a quote but"));
    EXPECT_THAT(RemarkOn(u"[Marlento]\nJobDir=\"D:\\JOB\" ; jobs\n"), HasSubstr("seems to end with a comment"));
    EXPECT_EQ(RemarkOn(u"[Marlento]\nJobDir=\"D:\\JOB\"\n"), "0 remarks");
}

TEST(IniReport, CommentAfterAValue_GetsARemark) {
    EXPECT_THAT(RemarkOn(u"[Marlento]\nJobDir=D:\\JOB ; mine\n"), HasSubstr("'JobDir' seems to end with a comment"));
    EXPECT_THAT(RemarkOn(u"[Marlento]\nJobDir=D:\\JOB\t# mine\n"), HasSubstr("seems to end with a comment"));
    EXPECT_EQ(RemarkOn(u"[Marlento]\nJobDir=D:\\A;B#C\n"), "0 remarks");
    EXPECT_EQ(RemarkOn(u"[Marlento]\nJobDir=\"D:\\A ;B\"\n"), "0 remarks");
}

}  // namespace
}  // namespace tools
