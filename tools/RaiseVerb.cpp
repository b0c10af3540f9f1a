// `backproc raise`: commands for other modules, raised in this process and heard by its instances.
#include <charconv>
#include <memory>
#include <ostream>

#include "host/Composition.h"
#include "host/ProcessLife.h"
#include "host/clsQmxBackProcess.h"
#include "host/frmBackProcessMain.h"
#include "runtime/Error.h"
#include "runtime/win32/WindowsHeaders.h"
#include "tools/Display.h"
#include "tools/Verbs.h"

namespace tools {

namespace {

constexpr std::string_view kHelp =
    R"(Usage: backproc raise send MODULE COMMAND     [--instances N]
       backproc raise all COMMAND             [--instances N]
       backproc raise shell MODULE MODE LINE  [--instances N]

Creates N instances (1 unless told) in this process and raises a command for another module: COMMAND for MODULE,
COMMAND in this component's own name, or the request to MODULE to start a program. MODE is a whole number from -32768
to 32767. Shows each event in the form that 'backproc host' has:

  1 NotifyServer [M] [SHELL,-3,a,b]

Example:
  backproc raise shell EDITOR 1 "amp.sch" --instances 2
)";

constexpr std::uint32_t kMostInstances = 1000;

struct Request {
    Arguments words;
    std::uint32_t instances = 1;
};

template <typename Number>
Number ParseNumber(const String& text, std::string_view what) {
    const std::string digits = runtime::ToUtf8(text);
    Number number{};
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), number);
    const bool isNumber = error == std::errc{} && end == digits.data() + digits.size();
    if (!isNumber) throw UsageError(std::string(what) + " must be a whole number in its range, not '" + digits + "'");
    return number;
}

Request ParseRequest(const Arguments& arguments) {
    Request request;
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        if (arguments[i] != u"--instances") {
            request.words.push_back(arguments[i]);
            continue;
        }
        if (++i == arguments.size()) throw UsageError("--instances needs a number");
        request.instances = ParseNumber<std::uint32_t>(arguments[i], "N");
        if (request.instances > kMostInstances) throw UsageError("N must be at most 1000");
    }
    return request;
}

void RaiseCommand(Arguments& words) {
    host::frmBackProcessMain& form = host::MainForm();
    if (words.size() == 3 && words[0] == u"send") {
        form.AP_SendCmd(words[1], words[2]);
    } else if (words.size() == 2 && words[0] == u"all") {
        form.AP_SendCmdAll(words[1]);
    } else if (words.size() == 4 && words[0] == u"shell") {
        form.AP_Shell(words[1], ParseNumber<std::int16_t>(words[2], "MODE"), words[3]);
    } else {
        throw UsageError("takes 'send MODULE COMMAND', 'all COMMAND' or 'shell MODULE MODE LINE'");
    }
}

/// The instances of this run; they are terminated in the order of their creation.
class Instances {
 public:
    Instances(std::uint32_t count, std::ostream& out) {
        for (std::uint32_t number = 1; number <= count; ++number) {
            instances_.push_back(
                std::make_unique<host::clsQmxBackProcess>([number, &out](String& module, String& command) {
                    out << number << " NotifyServer [" << Display(module) << "] [" << Display(command) << "]\n"
                        << std::flush;
                }));
        }
    }
    Instances(const Instances&) = delete;
    Instances& operator=(const Instances&) = delete;
    /// After an error only: it is that one that the tool reports.
    ~Instances() {
        for (const auto& instance : instances_) runtime::SkipError([&] { instance->Terminate(); });
    }

    void Terminate() {
        for (const auto& instance : instances_) instance->Terminate();
    }

 private:
    std::vector<std::unique_ptr<host::clsQmxBackProcess>> instances_;
};

int RunRaise(const Arguments& arguments, Console& console) {
    Request request = ParseRequest(arguments);
    host::EnsureComposed(GetModuleHandleW(nullptr));
    Instances instances(request.instances, console.out);
    RaiseCommand(request.words);
    instances.Terminate();
    return kSuccess;
}

}  // namespace

const Verb kRaiseVerb = {"raise", "Raises a command for another module", kHelp, RunRaise};

}  // namespace tools
