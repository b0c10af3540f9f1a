#include "host/DevelopmentValues.h"

#include "host/frmBackProcessMain.h"
#include "routing/CommandInterpreter.h"
#include "tests/support/ComponentFixture.h"

namespace host {
namespace {

using DevelopmentValues = tests::HeadlessComponentTest;

TEST_F(DevelopmentValues, AreTheInterpretersOwn) {
    routing::CurrentDesignName = u"amplifier";
    routing::LanguagePath = u"C:\\de";
    EXPECT_EQ(DevelopmentValue(u"CurrentDesignName"), u"amplifier");
    EXPECT_EQ(DevelopmentValue(u"LanguagePath"), u"C:\\de");
    EXPECT_EQ(DevelopmentValue(u"currentdesignname"), std::nullopt);
    EXPECT_EQ(DevelopmentValue(u""), std::nullopt);
}

TEST_F(DevelopmentValues, CaptionIsThatOfALoadedForm) {
    EXPECT_EQ(DevelopmentValue(u"Caption"), std::nullopt);
    EXPECT_FALSE(MainFormExists());
    EXPECT_EQ(MainForm().IsLoaded(), false);
    EXPECT_EQ(DevelopmentValue(u"Caption"), std::nullopt);
    EXPECT_FALSE(MainForm().IsLoaded());
    MainForm().SetCaption(u"Titel");
    EXPECT_EQ(DevelopmentValue(u"Caption"), u"Titel");
}

}  // namespace
}  // namespace host
