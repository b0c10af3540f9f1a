// Compares the list of all texts with the texts that the component looks up.
#include "host/TextCatalogue.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <set>

#include "dialogs/Qmxquery.h"
#include "dialogs/frmQMXMsgBox.h"
#include "host/frmBackProcessMain.h"
#include "runtime/LoadedForms.h"
#include "services/LocalTexts.h"
#include "services/MessageTexts.h"
#include "services/modReg.h"
#include "tests/support/ComponentFixture.h"
#include "tests/support/ReaderInUse.h"
#include "tests/support/RecordingReader.h"

namespace host {
namespace {

using runtime::String;

bool Lists(const std::vector<CatalogueText>& catalogue, const String& defaultText, const String& id) {
    return std::ranges::any_of(
        catalogue, [&](const CatalogueText& text) { return text.id == id && text.defaultText == defaultText; });
}

/// Runs all code that looks up texts. The language is English.
class AskedTexts : public tests::HeadlessComponentTest {
 protected:
    AskedTexts() {
        MainForm().EnsureLoaded();
        for (std::int32_t number = -1; number <= 130; ++number) {
            memory_.messageBox.answers = {1};
            services::ShowError(number, u"detail");
        }
        memory_.messageBox.answers = {1};
        String folder = u"C:\\none";
        std::int32_t result = 0;
        services::CheckFolder(folder, result);
        dialogs::frmQMXMsgBox box;
        box.EnsureLoaded();
        box.Unload();
        dialogs::Qmxquery query;
        query.EnsureLoaded();
        query.Unload();
    }

    tests::RecordingReader recording_{reader_};
    const tests::ReaderInUse inUse_{recording_};
};

TEST_F(AskedTexts, EachTextIsInTheCatalogue) {
    const auto catalogue = TextCatalogue();
    EXPECT_GE(recording_.Asked().size(), 19u);
    for (const auto& [defaultText, id] : recording_.Asked()) {
        if (id == services::kDirection.id) continue;  // not a text for translators
        EXPECT_TRUE(Lists(catalogue, defaultText, id)) << runtime::ToUtf8(id) << " = " << runtime::ToUtf8(defaultText);
    }
}

TEST_F(AskedTexts, EachTextOfTheCodeIsLookedUp) {
    for (const services::LocalText& text : services::CodeTexts()) {
        const tests::RecordingReader::AskedText expected(text.defaultText, text.id);
        EXPECT_THAT(recording_.Asked(), testing::Contains(expected)) << runtime::ToUtf8(text.id);
    }
}

TEST_F(AskedTexts, EachTextOfTheFormsIsLookedUp) {
    for (const CatalogueText& text : TextCatalogue()) {
        if (text.dialog.empty() && text.id != u"561") continue;
        const tests::RecordingReader::AskedText expected(text.defaultText, text.id);
        EXPECT_THAT(recording_.Asked(), testing::Contains(expected)) << runtime::ToUtf8(text.id);
    }
}

TEST(TextCatalogue, ListsEachTextWithIdentifierDefaultAndUse) {
    std::vector<std::string> lines;
    for (const CatalogueText& text : TextCatalogue()) {
        lines.push_back(runtime::ToUtf8(text.id + u"|" + text.defaultText + u"|" + text.use + u"|" + text.dialog));
    }
    EXPECT_THAT(
        lines,
        testing::UnorderedElementsAre(
            "LOC|Pelorix Background Processing Application|caption of the main form|",
            "LOC|Pelorix Background process |title of error reports|",
            "561|Pelorix Background Processing Application|caption of frmBackProcessMain|",
            "991019 |Path: |folder check, before the folder|", "99961 | not available|folder check, after the folder|",
            "99352|Can't load project: |error 1, before the detail|",
            "99374|Can't save project|error 2, before the detail|",
            "1097|Can't create net hook |error 3, before the detail|",
            "1099|Can't find project file: |error 4, before the detail|",
            "991089|Range Error: |error 21, before the detail|",
            "10294|Can't load local vector font, default assumed.|error 22, before the detail|",
            "10320|Can't exceed 25 characters.|error 23, before the detail|",
            "10321|Password can't exceed 8 characters.|error 24, before the detail|",
            "99561|Part/Symbol: |error 101, before the detail|", "99196| already exists|error 101, after the detail|",
            "39171|&Yes|cmdBut(0) of frmQMXMsgBox|frmQMXMsgBox", "39172|&No|cmdBut(1) of frmQMXMsgBox|frmQMXMsgBox",
            "39173|Yes &To All|cmdBut(2) of frmQMXMsgBox|frmQMXMsgBox",
            "99388|Cancel|cmdBut(3) of frmQMXMsgBox|frmQMXMsgBox", "99177|Accept|cmdAccept of Qmxquery|Qmxquery",
            "99388 |Cancel|cmdCancel of Qmxquery|Qmxquery"));
}

TEST(TextCatalogue, MarksTheCaptionsOfThePublishedState) {
    std::set<String> published;
    for (const CatalogueText& text : TextCatalogue()) {
        if (text.isPublished) published.insert(text.id);
    }
    EXPECT_THAT(published, testing::ElementsAre(u"561", u"LOC"));
}

TEST_F(AskedTexts, TextCatalogue_LoadsNoForm) {
    MainForm().Unload();
    TextCatalogue();
    EXPECT_EQ(runtime::LoadedForms().Count(), 0u);
}

}  // namespace
}  // namespace host
