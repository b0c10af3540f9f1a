// Runs thousands of random commands of all kinds except EX. No command may hang or fail. Some builds run the test with
// the compiler's sanitizers.
#include <gtest/gtest.h>

#include "host/clsQmxBackProcess.h"
#include "host/frmBackProcessMain.h"
#include "routing/CommandInterpreter.h"
#include "tests/support/CommandMaker.h"
#include "tests/support/ComponentFixture.h"

namespace host {
namespace {

using CommandStress = tests::HeadlessComponentTest;

TEST_F(CommandStress, CommandsOfAllKinds_ComponentStillWorks) {
    constexpr int kCommands = 20'000;
    kernel_.Put(u"DESIGN_NAME", u"amplifier");
    clsQmxBackProcess object([](String&, String&) {});
    MainForm().EnsureLoaded();
    tests::CommandMaker maker(4'000, 200);
    for (int i = 0; i < kCommands; ++i) {
        // Use a new string for each command, so that a sanitizer finds accesses beyond its end.
        const String command = maker.Next();
        object.NotifyMe({}, command);
        if (i % 1000 == 0) kernel_.ClearLog();
    }
    EXPECT_EQ(routing::CurrentDesignName(), u"amplifier");
    EXPECT_TRUE(MainForm().IsLoaded());
    EXPECT_TRUE(memory_.messageBox.shown.empty());
    object.Terminate();
}

}  // namespace
}  // namespace host
