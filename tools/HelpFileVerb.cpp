// `backproc help-file`: the suite's help, opened as the component opens it.
#include <chrono>
#include <ostream>
#include <stdexcept>

#include "host/Composition.h"
#include "host/ProcessLife.h"
#include "host/clsQmxBackProcess.h"
#include "host/frmBackProcessMain.h"
#include "runtime/Error.h"
#include "runtime/Ports.h"
#include "runtime/win32/WindowsHeaders.h"
#include "services/ProcessValues.h"
#include "services/QMXHLP.h"
#include "tools/Apartment.h"
#include "tools/Display.h"
#include "tools/MessagePump.h"
#include "tools/Usage.h"
#include "tools/Verbs.h"

namespace tools {

namespace {

constexpr std::string_view kHelp =
    R"(Usage: backproc help-file

Opens the suite's help, Marlentine.chm beside the component, at its table of contents: as the component opens it, owned
by the main form of an instance in this process. Shows the file's name, and waits until the help window is closed.

Exit code: 0 shown and closed, 2 bad usage, 1 failed: no help window within five seconds, because the file or the
system's HTML Help is missing; or no main form, because another backproc of the session has it.

Example:
  backproc help-file
)";

/// The main form, loaded for this run.
class LoadedComponent {
 public:
    LoadedComponent() : object_([](String&, String&) {}) {
        std::int16_t mode = 0;
        object_.Load(mode);
        if (host::MainForm().IsLoaded()) return;
        object_.Terminate();
        throw std::runtime_error(
            "the main form did not come up: another backproc of this session has it; end that one first");
    }
    LoadedComponent(const LoadedComponent&) = delete;
    LoadedComponent& operator=(const LoadedComponent&) = delete;
    ~LoadedComponent() {
        runtime::SkipError([this] { object_.Terminate(); });
    }

 private:
    host::clsQmxBackProcess object_;
};

BOOL CALLBACK NoteVisible(HWND window, LPARAM into) noexcept {
    DWORD process = 0;
    GetWindowThreadProcessId(window, &process);
    if (process != GetCurrentProcessId() || !IsWindowVisible(window)) return TRUE;
    *reinterpret_cast<bool*>(into) = true;
    return FALSE;
}

/// The main form is never visible, so what is visible is help.
bool IsHelpShown() {
    bool isShown = false;
    EnumWindows(NoteVisible, reinterpret_cast<LPARAM>(&isShown));
    return isShown;
}

std::string WhyNoHelp() {
    const String file = services::CompiledHelpName();
    if (!runtime::CurrentPorts().files.Stamp(file)) {
        return "there is no help file " + Quoted(file) + "; put that of the package there";
    }
    return "no help window came up within five seconds for " + Quoted(file) + "; is the system's HTML Help installed?";
}

int RunHelpFile(const Arguments& arguments, Console& console) {
    using namespace std::chrono_literals;
    constexpr auto kStep = 100ms;
    constexpr auto kLongestWait = 5s;

    AtMost(0, arguments);
    const Apartment apartment;
    host::EnsureComposed(GetModuleHandleW(nullptr));
    const LoadedComponent component;
    std::int16_t wanted = -1;
    services::ShowHelpTopic(u"", 0, wanted);
    console.out << Display(services::CompiledHelpName()) << '\n' << std::flush;
    for (auto waited = 0ms; !IsHelpShown() && waited < kLongestWait; waited += kStep) PumpFor(kStep);
    if (!IsHelpShown()) throw std::runtime_error(WhyNoHelp());
    while (IsHelpShown()) PumpFor(kStep);
    return kSuccess;
}

}  // namespace

const Verb kHelpFileVerb = {"help-file", "Opens the suite's help", kHelp, RunHelpFile};

}  // namespace tools
