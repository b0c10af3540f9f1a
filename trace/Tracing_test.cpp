// Tests a traced component in memory. Compares the trace with the calls that the kernel, the message box and the help
// received.
#include "trace/Tracing.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <memory>
#include <optional>
#include <regex>
#include <string>
#include <vector>

#include "dialogs/Qmxquery.h"
#include "host/Observer.h"
#include "host/clsQmxBackProcess.h"
#include "host/frmBackProcessMain.h"
#include "kernel_api/Suite.h"
#include "runtime/Error.h"
#include "runtime/LoadedForms.h"
#include "services/MessageTexts.h"
#include "services/QMXHLP.h"
#include "tests/support/ComponentFixture.h"
#include "tests/support/HandledForm.h"
#include "tests/support/MemoryOutput.h"

namespace trace {
namespace {

using runtime::Error;
using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsSubsetOf;
using Texts = std::vector<std::string>;

/// Returns the value of `name` in `line`; "(none)" if the line has no such value.
std::string ValueOf(const std::string& line, const std::string& name) {
    const std::size_t at = line.find(" " + name + "=[");
    if (at == std::string::npos) return "(none)";
    const std::size_t begin = at + name.size() + 3;
    return line.substr(begin, line.find(']', begin) - begin);
}

/// Returns the kernel call in a traced line, in the form of the log of InMemoryKernel. Returns "" for any other line.
std::string KernelCallIn(const std::string& line) {
    const std::string name = line.substr(0, line.find(' '));
    if (name == "E_SetString") return name + "(" + ValueOf(line, "key") + ", " + ValueOf(line, "given") + ")";
    if (name == "E_GetString") return name + "(" + ValueOf(line, "key") + ")";
    if (name == "DB_DataBase") return name + "()";
    // The line of O_GetName also has a value. The log contains only the handle.
    return name == "O_GetName" ? name + "(" + ValueOf(line, "handle") + ")" : "";
}

class TracedComponent : public tests::HeadlessTest {
 protected:
    TracedComponent() {
        tracing_.Watch(composition_);
        kernel_.Put(u"DESIGN_NAME", u"amplifier");
        kernel_.Put(u"AllAps", u"EDITOR,K4TBACKPROCESS");
    }
    ~TracedComponent() override { kernel_.StopFailing(); }

    std::unique_ptr<host::ServiceObject> NewInstance() {
        return tracing_.NewInstance(
            [this](String& Aname, String& sCommand) {
                if (onEvent_) onEvent_(Aname, sCommand);
            },
            [](host::NotifyServerEvent event) { return std::make_unique<host::clsQmxBackProcess>(std::move(event)); });
    }

    /// Returns the lines that were written since the previous call of this function, without times.
    Texts Lines() {
        static const std::regex time(R"( ms=\[\d+\.\d{3}\])");
        Texts lines;
        for (const std::string& line : std::exchange(output_.lines, {})) {
            lines.push_back(std::regex_replace(line, time, ""));
        }
        return lines;
    }
    /// Like Lines, but returns only the lines that begin with one of `starts`.
    Texts LinesOf(const Texts& starts) {
        Texts lines = Lines();
        std::erase_if(lines, [&starts](const std::string& line) {
            return std::ranges::none_of(starts, [&line](const std::string& start) { return line.starts_with(start); });
        });
        return lines;
    }

    /// The trace owns its output. This output passes the lines to `output_`, which the tests read.
    class ForwardingOutput : public Output {
     public:
        explicit ForwardingOutput(tests::MemoryOutput& output) : output_(output) {}
        void Write(std::string_view line) noexcept override { output_.Write(line); }
        void CountLost() noexcept override { output_.CountLost(); }

     private:
        tests::MemoryOutput& output_;
    };

    tests::MemoryOutput output_;
    tests::InMemoryKernel kernel_;
    Tracing tracing_{std::make_unique<ForwardingOutput>(output_), ports_, kernel_};
    host::Composition composition_{tracing_.Ports(), tracing_.Kernel()};
    std::function<void(String& Aname, String& sCommand)> onEvent_;
};

TEST_F(TracedComponent, WholeLife_TracedKernelCallsEqualTheKernelsLog) {
    memory_.messageBox.answers = {1};
    auto instance = NewInstance();
    instance->Load(0);
    for (const StringView command : {u"All,SAVE", u"K4TBACKPROCESS,OPEN", u"All,LZ", u"Editor,SAVE", u"All,RD"}) {
        instance->NotifyMe(u"", command);
    }
    instance->AP_SendCmdAll(u"OPEN");
    kernel_.FailOn("DB_DataBase", Error(runtime::kFileNotFound));
    instance->NotifyMe(u"", u"All,SAVE");
    kernel_.StopFailing();
    instance->Load(0);
    auto second = NewInstance();
    second->NotifyMe(u"", u"All,EX");
    second->Terminate();
    instance->Terminate();

    Texts traced;
    for (const std::string& line : output_.lines) {
        if (std::string call = KernelCallIn(line); !call.empty()) traced.push_back(std::move(call));
    }
    EXPECT_GT(traced.size(), 40u);
    EXPECT_EQ(traced, kernel_.Log());
    EXPECT_EQ(
        std::ranges::count_if(output_.lines, [](const std::string& line) { return line.starts_with("message "); }), 2);
    EXPECT_EQ(memory_.messageBox.shown.size(), 1u);
    EXPECT_EQ(output_.lost, 0);
}

TEST_F(TracedComponent, WholeLife_EachStepIsWritten) {
    const auto instance = NewInstance();
    EXPECT_EQ(LinesOf({"create", "system folder"}),
              (Texts{"create instance=[1]", "system folder folder=[C:\\Pelorix\\sys\\]", "created instance=[1]"}));
    instance->Load(3);
    EXPECT_EQ(LinesOf({"Load", "load", "form", "E_GetString key=[AllAps]", "E_SetString", "error"}),
              (Texts{"Load instance=[1] mode=[3]", "form loading form=[frmBackProcessMain]",
                     "E_GetString key=[AllAps] value=[EDITOR,K4TBACKPROCESS]",
                     "E_SetString key=[K4TBACKPROCESS] given=[Pelorix Background Processing Application, 0, 0, 0, 0]"
                     " back=[Pelorix Background Processing Application, 0, 0, 0, 0]",
                     "form loaded form=[frmBackProcessMain]", "Load done instance=[1] result=[True]"}));
    instance->Terminate();
    EXPECT_EQ(LinesOf({"release", "form", "NotifyServer", "E_SetString"}),
              (Texts{"release instance=[1]", "form unloading form=[frmBackProcessMain]",
                     "E_SetString key=[K4TBACKPROCESS] given=[] back=[]",
                     "NotifyServer instance=[1] module=[K4TBACKPROCESS] command=[SHUTDOWN]",
                     "form unloaded form=[frmBackProcessMain]", "E_SetString key=[INITBP] given=[TERM] back=[TERM]",
                     "released instance=[1]"}));
}

TEST_F(TracedComponent, CreationFails_ErrorIsWritten) {
    kernel_.FailOn("E_SetString(INITBP", Error(runtime::kFileNotFound));
    EXPECT_EQ(tests::ErrorOf([this] { NewInstance(); }), runtime::kFileNotFound);
    EXPECT_EQ(Lines(),
              (Texts{"create instance=[1]", "E_SetString key=[INITBP] given=[INIT] error=[53] text=[File not found]",
                     "created instance=[1] error=[53] text=[File not found]"}));
}

TEST_F(TracedComponent, LoadUnloadsAllForms_ReasonIsWritten) {
    const auto instance = NewInstance();
    kernel_.FailOn("E_GetString(AllAps", Error(runtime::kOverflow, u"Overflow: field 2"));
    Lines();
    EXPECT_TRUE(instance->Load(0));
    const Texts lines = LinesOf({"load", "form", "error", "NotifyServer", "Load"});
    const Texts round = {"form loading form=[frmBackProcessMain]",
                         "load shut down error=[6] text=[Overflow: field 2]",
                         "form unloading form=[frmBackProcessMain]",
                         "NotifyServer instance=[1] module=[K4TBACKPROCESS] command=[SHUTDOWN]",
                         "form unloaded form=[frmBackProcessMain]",
                         "form not loaded form=[frmBackProcessMain] error=[364] text=[Object was unloaded: "
                         "frmBackProcessMain]",
                         "error skipped error=[364] text=[Object was unloaded: frmBackProcessMain]"};
    Texts expected = {"Load instance=[1] mode=[0]"};
    for (int i = 0; i < 3; ++i) expected.insert(expected.end(), round.begin(), round.end());
    expected.push_back("Load done instance=[1] result=[True]");
    EXPECT_EQ(lines, expected);
}

TEST_F(TracedComponent, Commands_VerbAndErrorAreWritten) {
    const auto instance = NewInstance();
    instance->Load(0);
    Lines();
    instance->NotifyMe(u"EDITOR", u"All,RD,1");
    EXPECT_EQ(Lines(), (Texts{"NotifyMe instance=[1] name=[EDITOR] command=[All,RD,1] addressee=[All] verb=[RD]",
                              "NotifyMe done instance=[1]"}));
    kernel_.FailOn("DB_DataBase", Error(runtime::kSilent));
    instance->NotifyMe(u"", u"All,SAVE");
    const Texts lines = LinesOf({"NotifyMe", "DB_DataBase", "command", "form"});
    EXPECT_EQ(lines, (Texts{"NotifyMe instance=[1] name=[] command=[All,SAVE] addressee=[All] verb=[SAVE]",
                            "DB_DataBase error=[9999] text=[Application-defined or object-defined error]",
                            "command failed error=[9999] text=[Application-defined or object-defined error]",
                            "form unloading form=[frmBackProcessMain]", "form unloaded form=[frmBackProcessMain]",
                            "NotifyMe done instance=[1]"}));
}

TEST_F(TracedComponent, MessageAndShutdownFail_CommandsErrorIsWritten) {
    const auto instance = NewInstance();
    instance->Load(0);
    kernel_.FailOn("DB_DataBase", Error(runtime::kFileNotFound));
    onEvent_ = [](String&, String&) { throw Error(438); };
    Lines();
    // The message box has no answer, so it fails, too.
    EXPECT_EQ(tests::ErrorOf([&] { instance->NotifyMe(u"", u"All,SAVE"); }), runtime::kInternalError);
    onEvent_ = {};
    const Texts lines = LinesOf({"command failed", "message box", "form"});
    EXPECT_EQ(lines.at(0), "command failed error=[53] text=[File not found]");
    EXPECT_THAT(lines.at(1), testing::StartsWith("message box=[system] prompt=[File not found]"));
    EXPECT_EQ(lines.back(), "form unloaded form=[frmBackProcessMain]");
}

TEST_F(TracedComponent, SeverPathAndDiagnosticsCalls_AreWritten) {
    const auto instance = NewInstance();
    Lines();
    instance->SetSeverPath(u"C:\\x");
    instance->SeverPath();
    instance->AP_SendCmd(u"EDITOR", u"OPEN");
    instance->AP_Shell(u"EDITOR", -3, u"a.exe");
    EXPECT_EQ(
        Lines(),
        (Texts{"SeverPath put instance=[1] value=[C:\\x]", "SeverPath read instance=[1]",
               "AP_SendCmd instance=[1] module=[EDITOR] command=[OPEN]",
               "NotifyServer instance=[1] module=[EDITOR] command=[OPEN]", "AP_SendCmd done instance=[1]",
               "AP_Shell instance=[1] module=[EDITOR] mode=[-3] command line=[a.exe]",
               "NotifyServer instance=[1] module=[EDITOR] command=[SHELL,-3,a.exe]", "AP_Shell done instance=[1]"}));
}

TEST_F(TracedComponent, SinkFails_ErrorIsWritten) {
    const auto instance = NewInstance();
    onEvent_ = [](String&, String&) { throw Error(438); };
    Lines();
    EXPECT_EQ(tests::ErrorOf([&] { instance->AP_SendCmdAll(u"OPEN"); }), 438);
    EXPECT_EQ(Lines().back(),
              "AP_SendCmdAll done instance=[1] error=[438] text=[Object doesn't support this property or method]");
    onEvent_ = {};
}

TEST_F(TracedComponent, SinkCalledInsideASink_BothResultsAreWritten) {
    host::Observer& observer = *host::CurrentObserver();
    const auto first = observer.SinkCalled(1, u"EDITOR", u"OPEN");
    const auto second = observer.SinkCalled(2, u"EDITOR", u"SAVE");
    observer.SinkAnswered(2, 0, second);
    observer.SinkAnswered(1, 0x80020009, first);
    for (const std::string& line : {output_.lines[2], output_.lines[3]}) EXPECT_THAT(line, testing::HasSubstr(" ms=["));
    EXPECT_EQ(Lines(), (Texts{"sink called connection=[1] module=[EDITOR] command=[OPEN]",
                              "sink called connection=[2] module=[EDITOR] command=[SAVE]",
                              "sink answered connection=[2] result=[0x00000000]",
                              "sink answered connection=[1] result=[0x80020009]"}));
}

TEST_F(TracedComponent, SinksOverlapOnTwoThreads_EachHasItsOwnTime) {
    host::Observer& observer = *host::CurrentObserver();
    const auto second = observer.SinkCalled(2, u"EDITOR", u"SAVE");
    observer.SinkAnswered(1, 0, second - std::chrono::hours(1));
    observer.SinkAnswered(2, 0, second);
    const auto hasAnHour = testing::HasSubstr(" ms=[3600");
    EXPECT_THAT(output_.lines, ElementsAre(testing::_, hasAnHour, testing::Not(hasAnHour)));
}

TEST_F(TracedComponent, Settings_SourceIsWritten) {
    memory_.files.AddFile(u"C:\\Pelorix\\sys\\MARLENTO.INI", "[Marlento]\nJobDir=D:\\job\n");
    memory_.settings.Save(u"Marlento", u"Settings", u"LibDir", u"E:\\lib");
    const auto instance = NewInstance();
    EXPECT_THAT((Texts{"setting application=[Marlento] key=[JobDir] value=[D:\\job] source=[INI file]",
                       "setting application=[Marlento] key=[LibDir] value=[E:\\lib] source=[registry]",
                       "setting application=[Marlento] key=[Ver] value=[?] source=[default]"}),
                IsSubsetOf(LinesOf({"setting"})));
}

TEST_F(TracedComponent, SettingChangesAtEachRead_ReturnedValueIsWritten) {
    class Changing : public runtime::SettingsPort {
     public:
        std::optional<String> Get(StringView, StringView, StringView) override {
            return reads++ == 0 ? std::optional<String>(u"first") : std::nullopt;
        }
        void Save(StringView, StringView, StringView, StringView) override {}
        int reads = 0;
    } settings;
    kernel_api::builtin::BuiltInReader reader(memory_.files, settings, memory_.locale);
    TracedReader traced(output_, reader);
    EXPECT_EQ(traced.GetSetting(u"App", u"Key", u"default"), u"first");
    EXPECT_EQ(settings.reads, 1);
    EXPECT_EQ(traced.GetSetting(u"App", u"Key", u"default"), u"default");
    EXPECT_EQ(Lines(), (Texts{"setting application=[App] key=[Key] value=[first] source=[registry]",
                              "setting application=[App] key=[Key] value=[default] source=[default]"}));
}

TEST_F(TracedComponent, Texts_IdentifierAndTextAreWritten) {
    kernel_.Put(u"LANGUAGEPATH", u"C:\\de");
    memory_.files.AddFile(u"C:\\de\\K4TBackProcess.txt", "99388 = Abbrechen\n");
    EXPECT_EQ(services::GetLocalText(u"Cancel", u"99388 "), u"Abbrechen");
    EXPECT_EQ(Lines(), (Texts{"E_GetString key=[LANGUAGEPATH] value=[C:\\de]",
                              "text id=[99388 ] default=[Cancel] shown=[Abbrechen]"}));
}

TEST_F(TracedComponent, Messages_QuestionAndAnswerAreWritten) {
    memory_.messageBox.answers = {6};
    EXPECT_EQ(services::ShowMessage(u"Save?\r\n", 36, u"Editor"), 6);
    EXPECT_EQ(Lines(), (Texts{"message box=[system] prompt=[Save?\\u{D}\\u{A}] flags=[36] title=[Editor]",
                              "message answered answer=[6]"}));
    EXPECT_ANY_THROW(services::ShowMessage(u"unexpected", 0, u""));
    EXPECT_THAT(Lines().back(), testing::StartsWith("message answered error=[51] text=["));
}

TEST_F(TracedComponent, SuiteDialogs_QuestionAndAnswerAreWritten) {
    const services::SuiteMessageBox box = [](StringView, std::int32_t, StringView) { return 8; };
    const services::SuiteQuery query = [](const String&, const String&, std::vector<String>&, std::int32_t,
                                          std::int32_t& index, bool, const String&) {
        index = 2;
        return String(u"R1");
    };
    services::Values().suiteMessageBox = Traced(output_, box);
    services::Values().suiteQuery = Traced(output_, query);
    EXPECT_EQ(services::ShowMessage(u"All?", 8, u"Editor"), 8);
    std::vector<String> values = {u""};
    std::int32_t index = 0;
    EXPECT_EQ(dialogs::AskQuery(u"Editor", u"Name?", values, 3, index, false, u""), u"R1");
    EXPECT_EQ(index, 2);
    EXPECT_EQ(Lines(),
              (Texts{"message box=[suite] prompt=[All?] flags=[8] title=[Editor]", "message answered answer=[8]",
                     "question prompt=[Name?] kind=[3] title=[Editor]", "question answered answer=[R1] index=[2]"}));
}

TEST_F(TracedComponent, Watching_BothSuiteDialogsAreTraced) {
    const auto close = [this] { memory_.windows.Last().Events().Closing(runtime::UnloadReason::kUser); };
    memory_.windows.Post(close);
    services::ShowMessage(u"All?", 8, u"Editor");
    std::vector<String> values = {u""};
    std::int32_t index = 0;
    memory_.windows.Post(close);
    dialogs::AskQuery(u"Editor", u"Name?", values, 1, index, false, u"");
    EXPECT_THAT((Texts{"message answered answer=[2]", "question answered answer=[] index=[-1]",
                       "form loading form=[frmQMXMsgBox]", "form unloaded form=[Qmxquery]"}),
                IsSubsetOf(Lines()));
}

TEST_F(TracedComponent, Help_EachCallIsWritten) {
    services::Values().helpFilePath = u"C:\\Pelorix\\Marlentine.HLP";
    std::int16_t wanted = -1;
    services::ShowHelpTopic(u"", 0, wanted);
    services::CloseHelp(0);
    EXPECT_EQ(Lines(), (Texts{"help opened file=[C:\\Pelorix\\Marlentine.chm]", "help closed"}));
    EXPECT_EQ(memory_.help.calls.size(), 2u);
}

TEST_F(TracedComponent, FormRefusesToUnloadOrFailsToLoad_BothAreWritten) {
    tests::HandledForm form{u"dialog"};
    form.EnsureLoaded();
    form.refusesUnload = true;
    form.Unload();
    form.refusesUnload = false;
    form.Unload();
    EXPECT_EQ(Lines(), (Texts{"form loading form=[dialog]", "form loaded form=[dialog]", "form unloading form=[dialog]",
                              "form unload refused form=[dialog]", "form unloading form=[dialog]",
                              "form unloaded form=[dialog]"}));
    form.onLoad = [] { throw Error(5); };
    EXPECT_EQ(tests::ErrorOf([&] { form.EnsureLoaded(); }), 5);
    EXPECT_EQ(Lines().back(), "form not loaded form=[dialog] error=[5] text=[Invalid procedure call or argument]");
}

TEST_F(TracedComponent, HostileValues_LinesStayShortAndUnbroken) {
    const auto instance = NewInstance();
    const char16_t lone[] = {u'A', u',', 0xD800, u'\r', u'\n', 0};
    const String hostile[] = {u"All,\r\nRD",
                              String(u"All,\0]", 6),
                              lone,
                              String(10'000'000, u'x'),
                              u"All," + String(10'000'000, u'\n'),
                              u"\"" + String(10'000'000, u',')};
    for (const String& command : hostile) {
        Lines();
        instance->NotifyMe(command, command);
        kernel_.Put(u"AllAps", command);
        tracing_.Kernel().E_GetString(u"AllAps");
        String value = command;
        tracing_.Kernel().E_SetString(u"k", value);
        for (const std::string& line : Lines()) {
            EXPECT_EQ(line.find_first_of(std::string("\r\n\0", 3)), std::string::npos);
            EXPECT_LT(line.size(), 8000u);
        }
    }
}

TEST_F(TracedComponent, KernelReturnsNoAddress_NothingIsRead) {
    class FixedAddressKernel : public tests::InMemoryKernel {
     public:
        kernel_api::TextPointer E_GetString(StringView) override { return answer; }
        kernel_api::TextPointer answer = 0;
    } strange;
    TracedKernel kernel(output_, strange, memory_.locale);
    for (const int answer : {0, -5, 0x1234}) {
        strange.answer = answer;
        kernel.E_GetString(u"k");
    }
    EXPECT_EQ(Lines(), (Texts{"E_GetString key=[k] value=", "E_GetString key=[k] pointer=[-5]",
                              "E_GetString key=[k] pointer=[4660]"}));
}

TEST_F(TracedComponent, KernelRewritesAValue_BothValuesAreWritten) {
    kernel_.RewriteValues([](const std::string&, std::string& value) { value = "changed"; });
    String value = u"given";
    tracing_.Kernel().E_SetString(u"JobDir", value);
    EXPECT_EQ(value, u"changed");
    EXPECT_EQ(Lines(), Texts{"E_SetString key=[JobDir] given=[given] back=[changed]"});
}

TEST_F(TracedComponent, LongTextOfTheKernel_LengthInBytesIsWritten) {
    kernel_.Put(u"AllAps", String(5000, u'x'));
    tracing_.Kernel().E_GetString(u"AllAps");
    EXPECT_EQ(Lines(), Texts{"E_GetString key=[AllAps] value=[" + std::string(256, 'x') + "] cut from 5000 bytes"});
}

class WithoutTrace : public tests::HeadlessComponentTest {};

TEST_F(WithoutTrace, NoObserverAndNoWrapperIsInstalled) {
    EXPECT_EQ(host::CurrentObserver(), nullptr);
    EXPECT_EQ(runtime::CurrentFormObserver(), nullptr);
    EXPECT_EQ(&kernel_api::CurrentKernel(), &kernel_);
    EXPECT_EQ(&kernel_api::CurrentReader(), &reader_);
    EXPECT_EQ(&runtime::CurrentPorts(), &ports_);
}

TEST(TraceEnd, Observer_IsRemoved) {
    tests::MemoryPorts memory;
    const runtime::Ports ports = memory.All();
    tests::InMemoryKernel kernel;
    {
        Tracing tracing(std::make_unique<tests::MemoryOutput>(), ports, kernel);
        host::Composition composition(tracing.Ports(), tracing.Kernel());
        tracing.Watch(composition);
        EXPECT_NE(host::CurrentObserver(), nullptr);
    }
    EXPECT_EQ(host::CurrentObserver(), nullptr);
    EXPECT_EQ(runtime::CurrentFormObserver(), nullptr);
}

}  // namespace
}  // namespace trace
