// Implements `backproc host`. The verb uses the component as a module does. Lines of text control the verb.
#include <filesystem>
#include <fstream>
#include <istream>
#include <ostream>
#include <utility>

#include "tools/Apartment.h"
#include "tools/Display.h"
#include "tools/LineReader.h"
#include "tools/MessagePump.h"
#include "tools/ModuleHost.h"
#include "tools/TraceView.h"
#include "tools/Usage.h"
#include "tools/Verbs.h"

namespace tools {

namespace {

constexpr std::string_view kHelp =
    R"(Usage: backproc host [--trace] [FILE] ["/sys:FOLDER"]

Runs the component as a module of the suite does: in this process, through COM, with an event sink for each instance.
Commands come from FILE or from standard input, one per line, in UTF-8. The component reads the command line of this
process as it reads a module's command line. "/sys:FOLDER", in double quotes, sets the component's system folder.

  --trace         also shows what the component does, as 'backproc help trace' describes

  create          creates an instance                         1 created
  load N          calls Load                                  1 Load True
  notify N TEXT   passes TEXT to NotifyMe                     1 NotifyMe
  sever N VALUE   sets SeverPath; shows the new value         1 SeverPath [VALUE]
  sever N         reads SeverPath                             1 SeverPath []
  send N MODULE COMMAND       raises COMMAND for MODULE       1 AP_SendCmd
  sendall N COMMAND           raises COMMAND for all modules, with K4TBACKPROCESS as the event's module
  shell N MODULE MODE LINE    asks MODULE to start a program with the command line LINE
  release N       releases the instance                       1 released
  set KEY VALUE   sets a shared string of the suite
  get KEY         shows one string; 'KEY=' if it is not set   KEY=[VALUE]
  strings         shows all strings, sorted by key            KEY=[VALUE]
                  (only with the development kernel)
  state           shows the design name and the language folder that commands have set, and the main form's caption
                  if the form is loaded, one per line: CurrentDesignName=[NAME]  LanguagePath=[FOLDER]  Caption=[TEXT]
  pump MS         dispatches window messages for MS milliseconds

N is the number of an instance. The first 'create' makes instance 1; numbers are never reused. MS is at most 999999999.
MODULE is one word. MODE is a whole number from -32768 to 32767; MODULE decides what it means. COMMAND, LINE, TEXT and
VALUE are the rest of the line after one blank. They may be empty or missing. Blank lines and lines that start with '#'
are skipped. Window messages are dispatched between the lines and while the host waits for a line.

An event is shown at once:                                    1 NotifyServer [MODULE] [COMMAND]
A failed call is shown, and the host continues:               1 error 0x800A0035 File not found
A control character inside a text is shown as one visible character, so that each result stays on one line.

'send', 'sendall' and 'shell' use the diagnostics interface of the instance. Every instance of the process receives the
event. No other call of a client raises these events.

At the end of the input, all instances are released in the order of their creation.

Exit code: 0 done, 1 a call failed, FILE cannot be read, or a line is not a valid command (the message contains the
line's number), 2 bad usage.

Example, in a command prompt:
  echo create| backproc host
)";

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

/// Runs the lines of one script. Counts the lines and records whether all of them succeeded.
class HostRun {
 public:
    HostRun(std::istream& in, ModuleHost::Printer print, std::ostream& err)
        : reader_(in), host_(std::move(print)), err_(err) {}

    bool Run() {
        while (std::optional<std::string> line = reader_.Next()) {
            ++count_;
            if (count_ == 1 && line->starts_with(kByteOrderMark)) line->erase(0, kByteOrderMark.size());
            succeeded_ = RunLine(*line) && succeeded_;
        }
        return host_.ReleaseAll() && succeeded_;
    }

 private:
    bool RunLine(const std::string& line) {
        try {
            return host_.Run(ParseHostCommand(runtime::FromUtf8(line)));
        } catch (const std::exception& error) {
            err_ << "backproc host: line " << count_ << ": " << error.what() << '\n' << std::flush;
            return false;
        }
    }

    LineReader reader_;
    ModuleHost host_;
    std::ostream& err_;
    int count_ = 0;
    bool succeeded_ = true;
};

/// Ignores letter case, as the component does.
bool IsSystemFolder(const String& argument) {
    constexpr std::wstring_view kOption = L"/sys:";
    return _wcsnicmp(runtime::win32::Wide(argument), kOption.data(), kOption.size()) == 0;
}

struct HostArguments {
    /// No value means standard input.
    std::optional<String> file;
    bool traces = false;
};

HostArguments ParseHostArguments(const Arguments& arguments) {
    HostArguments parsed;
    for (const String& argument : arguments) {
        // The component reads this argument from the process's command line.
        if (IsSystemFolder(argument)) continue;
        if (argument == u"--trace") {
            parsed.traces = true;
            continue;
        }
        if (argument.starts_with(u"--")) throw UnknownOption(argument);
        if (parsed.file) throw UnexpectedArgument(argument);
        parsed.file = argument;
    }
    return parsed;
}

std::string WhyUnreadable(const String& name) {
    const DWORD attributes = GetFileAttributesW(runtime::win32::Wide(name));
    if (attributes == INVALID_FILE_ATTRIBUTES) return "there is no file " + Quoted(name) + "; check the name";
    if ((attributes & FILE_ATTRIBUTE_DIRECTORY) != 0) {
        return Quoted(name) + " is a folder; give a file with a command on each line";
    }
    return "cannot read the file " + Quoted(name) + "; check that you may read it and that no program locks it";
}

bool RunPlain(std::istream& in, Console& console) {
    const auto print = [&console](const std::string& line) { console.out << line << '\n' << std::flush; };
    return HostRun(in, print, console.err).Run();
}

bool RunTraced(std::istream& in, Console& console) {
    TraceTarget target(nullptr);
    target.UseForThisProcess();
    TraceView view(target, console.out);
    return HostRun(
               in, [&view](const std::string& line) { view.Print(line); }, console.err)
        .Run();
}

int RunHost(const Arguments& arguments, Console& console) {
    const HostArguments parsed = ParseHostArguments(arguments);
    std::ifstream file;
    if (parsed.file) {
        file.open(std::filesystem::path(*parsed.file), std::ios::binary);
        if (!file) throw std::runtime_error(WhyUnreadable(*parsed.file));
    }
    std::istream& in = parsed.file ? file : console.in;
    const Apartment apartment;
    return (parsed.traces ? RunTraced(in, console) : RunPlain(in, console)) ? kSuccess : kFailure;
}

}  // namespace

const Verb kHostVerb = {"host", "Runs the component and calls it, driven by lines of text", kHelp, RunHost};

}  // namespace tools
