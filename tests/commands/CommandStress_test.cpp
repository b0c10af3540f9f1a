// A million commands of every shape: none hangs, and memory stays what it was.
#include "runtime/win32/WindowsHeaders.h"

#include <gtest/gtest.h>
#include <psapi.h>

#include <random>

#include "host/clsQmxBackProcess.h"
#include "host/frmBackProcessMain.h"
#include "routing/CommandInterpreter.h"
#include "tests/support/ComponentFixture.h"

namespace host {
namespace {

constexpr int kCommands = 1'000'000;
constexpr std::size_t kMegabyte = 1024 * 1024;

std::size_t PrivateBytes() {
    PROCESS_MEMORY_COUNTERS counters{};
    EXPECT_TRUE(K32GetProcessMemoryInfo(GetCurrentProcess(), &counters, sizeof counters));
    return counters.PagefileUsage;
}

/// Mixed addressees, verbs and rubbish. EX is not among them: that the component ends and comes back is another story.
class CommandMaker {
 public:
    String Next() {
        static constexpr StringView kStarts[] = {
            u"All", u"K4TBACKPROCESS",     u"Editor", u"all", u"\"All\"", u"\"All,", u"", u"\"",
            u",",   u"\"K4TBACKPROCESS\"x"};
        static constexpr StringView kVerbs[] = {u"SAVE", u"OPEN", u"RD",       u"UP",   u"FMVHDLED,WIRELIST",
                                                u"save", u"",     u"\"SAVE\"", u"\"UP", u"NONE"};
        String command = String(kStarts[Pick(std::size(kStarts))]) + u',';
        command += kVerbs[Pick(std::size(kVerbs))];
        if (Pick(3) == 0) AddRubbish(command, Pick(20));
        if (Pick(20'000) == 0) AddRubbish(command, kMegabyte);
        return command;
    }

 private:
    std::size_t Pick(std::size_t count) { return random_() % count; }

    void AddRubbish(String& command, std::size_t length) {
        static constexpr char16_t kUnits[] = {u',', u'"', u'\0', 0xD800, 0xDC00, u'A', u' ', 0xFFFF};
        for (; length > 0; --length) command += kUnits[Pick(std::size(kUnits))];
    }

    std::minstd_rand random_{4711};
};

using CommandStress = tests::HeadlessComponentTest;

TEST_F(CommandStress, AMillionCommandsLeaveMemoryFlat) {
    kernel_.Put(u"DESIGN_NAME", u"amplifier");
    clsQmxBackProcess object([](String&, String&) {});
    MainForm().EnsureLoaded();
    CommandMaker maker;
    std::size_t before = 0;
    for (int i = 0; i < kCommands; ++i) {
        // What the first of them ask for once, the largest text above all, is there by then.
        if (i == kCommands / 5) before = PrivateBytes();
        String name;
        String command = maker.Next();
        const String given = command;
        object.NotifyMe(name, command);
        ASSERT_EQ(command, given);
        if (i % 1000 == 0) kernel_.ClearLog();
    }
    EXPECT_LT(PrivateBytes(), before + 8 * kMegabyte);
    EXPECT_EQ(routing::CurrentDesignName, u"amplifier");
    EXPECT_TRUE(MainForm().IsLoaded());
    EXPECT_TRUE(memory_.messageBox.shown.empty());
    object.Terminate();
}

}  // namespace
}  // namespace host
