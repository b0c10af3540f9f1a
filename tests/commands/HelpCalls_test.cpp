// Tests the calls that open and close help. A recording help control replaces the system's control.
#include <gtest/gtest.h>

#include "host/frmBackProcessMain.h"
#include "runtime/win32/HelpControl.h"
#include "services/ProcessValues.h"
#include "services/QMXHLP.h"
#include "tests/support/ComponentFixture.h"
#include "tests/windows/RecordedHelp.h"

namespace host {
namespace {

class HelpCalls : public tests::ComponentTest {
 protected:
    HelpCalls() {
        runtime::UsePorts(&helpingPorts_);
        services::Values().installFolder = u"D:\\Pelorix";
        form_.EnsureLoaded();
        window_ = runtime::FromAscii(std::to_string(form_.Handle()));
        before_ = tests::RecordedHelp().size();
    }
    ~HelpCalls() override {
        form_.Unload();
        runtime::UsePorts(&ports_);
    }

    String NewCalls() const { return tests::RecordedHelp().substr(before_); }
    String Opened() const { return u"A " + window_ + u" D:\\Pelorix\\Marlentine.chm 1 0\n"; }
    String Closed() const { return u"A " + window_ + u"  18 0\n"; }
    static void ShowTopic() {
        std::int16_t wanted = -1;
        services::ShowHelpTopic(u"", 0, wanted);
    }

    runtime::win32::HelpControl control_{tests::RecordingHelp()};
    runtime::Ports helpingPorts_ = tests::WithPort(ports_, control_);
    frmBackProcessMain& form_ = MainForm();
    String window_;
    std::size_t before_ = 0;
};

TEST_F(HelpCalls, Contents_AreOpened_UnloadDoesNotCloseHelp) {
    services::ShowHelpContents();
    form_.Unload();
    EXPECT_EQ(NewCalls(), Opened());
}

TEST_F(HelpCalls, Topic_IsOpened_UnloadClosesHelpOnce) {
    ShowTopic();
    ShowTopic();
    form_.Unload();
    EXPECT_EQ(NewCalls(), Opened() + Opened() + Closed());
    form_.EnsureLoaded();
    form_.Unload();
    EXPECT_EQ(NewCalls(), Opened() + Opened() + Closed());
}

TEST_F(HelpCalls, TopicNotWanted_HelpIsNotCalled) {
    std::int16_t wanted = 0;
    services::ShowHelpTopic(u"", 0, wanted);
    form_.Unload();
    EXPECT_EQ(NewCalls(), u"");
}

TEST_F(HelpCalls, NonAsciiName_IsPassedInTheCodePage) {
    if (GetACP() != 1252) GTEST_SKIP() << "the system's code page is not 1252";
    services::Values().helpFilePath = u"C:\\Gr\u00F6\u00DFe \u20AC\\\u65B0.HLP";
    services::ShowHelpContents();
    EXPECT_EQ(NewCalls(), u"A " + window_ + u" C:\\Gr\u00F6\u00DFe \u0080\\?.chm 1 0\n");
}

TEST(HelpControlInTheComponent, MissingOrWrongControl_DoesNothing) {
    for (const String& library : {String(u"C:\\none.ocx"), runtime::win32::InSystemFolder(u"version.dll")}) {
        runtime::win32::HelpControl control(library);
        EXPECT_NO_THROW(control.OpenContents(0, u"C:\\a.chm"));
        EXPECT_NO_THROW(control.CloseAll(0));
        EXPECT_FALSE(control.Open(nullptr, u"C:\\a.chm", 0));
    }
}

}  // namespace
}  // namespace host
