// `backproc raise`: commands for other modules, raised in this process and heard by its instances.
#include <cstdint>
#include <functional>
#include <initializer_list>
#include <limits>
#include <memory>
#include <ostream>
#include <string_view>
#include <utility>
#include <vector>

#include "host/Composition.h"
#include "host/ProcessLife.h"
#include "host/clsQmxBackProcess.h"
#include "host/frmBackProcessMain.h"
#include "runtime/Error.h"
#include "runtime/win32/WindowsHeaders.h"
#include "tools/Display.h"
#include "tools/Usage.h"
#include "tools/Verbs.h"

namespace tools {

namespace {

constexpr std::string_view kHelp =
    R"(Usage: backproc raise send MODULE COMMAND     [--instances N]
       backproc raise all COMMAND             [--instances N]
       backproc raise shell MODULE MODE LINE  [--instances N]

Creates instances in this process and raises a command for another module: COMMAND for MODULE, COMMAND in this
component's own name, or the request to MODULE to start a program with the command line LINE.

  MODULE         name of a module, such as EDITOR
  MODE           a whole number from -32768 to 32767; what it means is MODULE's affair
  --instances N  how many instances, 0 to 1000; 1 without it

Each event is shown in the form that 'backproc host' has:

  1 NotifyServer [EDITOR] [SHELL,1,amp.sch]

Exit code: 0 done, 1 failed, 2 bad usage.

Example:
  backproc raise shell EDITOR 1 amp.sch --instances 2
)";

constexpr std::uint32_t kMostInstances = 1000;

/// What is to be raised, at the main form.
using Raise = std::function<void(host::frmBackProcessMain& form)>;

struct Request {
    Raise raise;
    std::uint32_t instances = 1;
};

/// Throws UsageError unless the request's words are its kind and one for each of `names`.
void Require(const Arguments& words, std::initializer_list<std::string_view> names) {
    if (words.size() <= names.size()) throw Missing(names.begin()[words.size() - 1]);
    RequireAtMost(names.size() + 1, words);
}

Raise ParseRaise(Arguments words) {
    constexpr std::int64_t kLeast = std::numeric_limits<std::int16_t>::min();
    constexpr std::int64_t kGreatest = std::numeric_limits<std::int16_t>::max();
    if (words.empty()) throw Missing("'send', 'all' or 'shell'");
    if (words[0] == u"send") {
        Require(words, {"MODULE", "COMMAND"});
        return [words](host::frmBackProcessMain& form) mutable { form.AP_SendCmd(words[1], words[2]); };
    }
    if (words[0] == u"all") {
        Require(words, {"COMMAND"});
        return [words](host::frmBackProcessMain& form) mutable { form.AP_SendCmdAll(words[1]); };
    }
    if (words[0] == u"shell") {
        Require(words, {"MODULE", "MODE", "LINE"});
        const auto mode = static_cast<std::int16_t>(ReadWhole(words[2], "MODE", kLeast, kGreatest));
        return [words, mode](host::frmBackProcessMain& form) mutable { form.AP_Shell(words[1], mode, words[3]); };
    }
    throw UsageError("cannot raise " + Quoted(words[0]) + "; it takes 'send', 'all' or 'shell'");
}

Request ParseRequest(const Arguments& arguments) {
    Request request;
    Arguments words;
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        if (arguments[i] != u"--instances") {
            words.push_back(arguments[i]);
            continue;
        }
        request.instances =
            static_cast<std::uint32_t>(ReadWhole(ValueOf(arguments, i), "--instances", 0, kMostInstances));
        ++i;
    }
    request.raise = ParseRaise(std::move(words));
    return request;
}

/// The instances of this run; they are terminated in the order of their creation.
class Instances {
 public:
    Instances() = default;
    Instances(const Instances&) = delete;
    Instances& operator=(const Instances&) = delete;
    /// After an error only: it is that one that the tool reports.
    ~Instances() {
        for (const auto& instance : instances_) runtime::SkipError([&] { instance->Terminate(); });
    }

    void Create(std::uint32_t number, std::ostream& out) {
        instances_.push_back(std::make_unique<host::clsQmxBackProcess>([number, &out](String& module, String& command) {
            out << number << " NotifyServer [" << Display(module) << "] [" << Display(command) << "]\n" << std::flush;
        }));
    }
    void Terminate() {
        for (const auto& instance : instances_) instance->Terminate();
    }

 private:
    std::vector<std::unique_ptr<host::clsQmxBackProcess>> instances_;
};

int RunRaise(const Arguments& arguments, Console& console) {
    const Request request = ParseRequest(arguments);
    host::EnsureComposed(GetModuleHandleW(nullptr));
    Instances instances;
    for (std::uint32_t number = 1; number <= request.instances; ++number) instances.Create(number, console.out);
    request.raise(host::MainForm());
    instances.Terminate();
    return kSuccess;
}

}  // namespace

const Verb kRaiseVerb = {"raise", "Raises a command for another module", kHelp, RunRaise};

}  // namespace tools
