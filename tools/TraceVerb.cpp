// Implements `backproc trace`. The verb runs a program and shows what the component does in the program.
#include "runtime/win32/WindowsHeaders.h"

#include <shellapi.h>

#include <atomic>
#include <optional>
#include <stdexcept>
#include <system_error>

#include "runtime/CommandLine.h"
#include "runtime/win32/Handle.h"
#include "tools/ComFailure.h"
#include "tools/Display.h"
#include "tools/TraceView.h"
#include "tools/Usage.h"
#include "tools/Verbs.h"

namespace tools {

namespace {

using runtime::win32::KernelHandle;
using runtime::win32::Wide;

constexpr std::string_view kHelp =
    R"(Usage: backproc trace [--file FILE] -- PROGRAM [ARGUMENT...]
       backproc trace --file FILE

Runs PROGRAM and shows what the component does in PROGRAM and in the programs that PROGRAM starts. Each event is shown
on one line, at once: calls of clients with their results, calls of the kernel, settings with their source, texts,
messages and their answers, events and the result of each client's sink, forms, and the errors that no client sees. Ends
with PROGRAM; if PROGRAM has a window and no console, also at Ctrl+C. The other programs are traced after the end of
PROGRAM only if there is a FILE.
Without PROGRAM, shows the lines that programs append to FILE, until Ctrl+C.

  --file FILE  the trace is appended to FILE and stays there; without it, FILE is the value of
               K4TBACKPROCESS_TRACE; without both, the trace is only shown

PROGRAM receives its arguments exactly as they are written here, quotes included. PROGRAM's own output is shown, too.

A line has local time, process/thread, the event, and values as NAME=[VALUE], or NAME= for a value that is missing:
  2026-11-20 14:03:07.125 1234/5678 E_GetString key=[AllAps] value=[EDITOR,LIBRARY] ms=[0.021]
ms is the time that a call took. A value longer than 256 characters is cut, and its length follows. A control character,
a lone surrogate and ']' are written as \u{HEX}; a backslash is written as it is.

Programs that are started elsewhere write a trace when K4TBACKPROCESS_TRACE=FILE is in their environment. They may share
one file. A file that cannot be written disables the trace and does no other harm.

Exit code: PROGRAM's own, 0 if the verb ends before PROGRAM; 1 if PROGRAM cannot be started or FILE or the output cannot
be written, 2 bad usage.

Example, in a command prompt:
  echo create| backproc trace -- backproc.exe host
)";

struct TraceArguments {
    std::optional<String> file;
    /// The number of arguments up to and including "--". No value if there is no program.
    std::optional<std::size_t> programPlace;
};

TraceArguments ParseTraceArguments(const Arguments& arguments) {
    TraceArguments parsed;
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        if (arguments[i] == kEndOfOptions) {
            if (i + 1 == arguments.size()) throw Missing("PROGRAM");
            parsed.programPlace = i + 1;
            return parsed;
        }
        if (arguments[i] == u"--file") {
            parsed.file = ValueOf(arguments, i++);
        } else if (arguments[i].starts_with(u'-')) {
            throw UnknownOption(arguments[i]);
        } else {
            throw UsageError("unexpected argument " + Quoted(arguments[i]) + "; write '--' before PROGRAM");
        }
    }
    if (!parsed.file) throw Missing("'-- PROGRAM' or '--file FILE'");
    return parsed;
}

/// Returns the program and its arguments as they are on this process's command line. The text must keep its quotes,
/// because the component in the program splits the command line at quotes. `place` is the number of the verb's
/// arguments before the program.
String ProgramPart(std::size_t place) {
    constexpr std::size_t kVerb = 1;
    StringView part = runtime::WithoutProgramName(runtime::win32::Utf16(GetCommandLineW()));
    for (std::size_t i = 0; i < kVerb + place; ++i) part = runtime::WithoutFirstArgument(part);
    return String(part);
}

KernelHandle Start(String commandLine, StringView program) {
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION started{};
    if (!CreateProcessW(nullptr, Wide(commandLine.data()), nullptr, nullptr, TRUE, 0, nullptr, nullptr, &startup,
                        &started)) {
        throw std::runtime_error("cannot start " + Quoted(program) + ": " +
                                 SystemText(HRESULT_FROM_WIN32(GetLastError())) + "; give its full path");
    }
    const KernelHandle thread(started.hThread);
    return KernelHandle(started.hProcess);
}

/// True if the program has windows and no console. It then receives no Ctrl+C.
bool IsWindowed(HANDLE process) {
    wchar_t path[MAX_PATH]{};
    DWORD length = MAX_PATH;
    QueryFullProcessImageNameW(process, 0, path, &length);
    SHFILEINFOW unused{};
    // The high word is the version of Windows for a program with windows, and 0 for a console program.
    return HIWORD(SHGetFileInfoW(path, 0, &unused, sizeof unused, SHGFI_EXETYPE)) != 0;
}

/// Set when the verb must end before the program.
KernelHandle endNow;
std::atomic<bool> leavesInterruptToProgram = true;

/// Ctrl+C ends a console program, and the verb still shows the rest of the trace. If the program receives no Ctrl+C,
/// or if the console is closed, the verb itself ends.
BOOL WINAPI OnConsoleEvent(DWORD event) {
    const bool isInterrupt = event == CTRL_C_EVENT || event == CTRL_BREAK_EVENT;
    if (isInterrupt && leavesInterruptToProgram) return TRUE;
    SetEvent(endNow.Get());
    // When this function returns, the system may end the process. The main thread must delete the temporary file first.
    Sleep(INFINITE);
    return TRUE;
}

void HandleConsoleEvents() {
    endNow.Reset(CreateEventW(nullptr, TRUE, FALSE, nullptr));
    if (!endNow) throw std::system_error(static_cast<int>(GetLastError()), std::system_category(), "CreateEvent");
    SetConsoleCtrlHandler(OnConsoleEvent, TRUE);
}

int RunTrace(const Arguments& arguments, Console& console) {
    const TraceArguments parsed = ParseTraceArguments(arguments);
    TraceTarget target(parsed.file ? &*parsed.file : nullptr);
    if (!parsed.programPlace) {
        TraceView(target, console.out).WaitForFailure();
        return kFailure;
    }
    target.UseForThisProcess();
    HandleConsoleEvents();
    const TraceView view(target, console.out);
    const KernelHandle program = Start(ProgramPart(*parsed.programPlace), arguments[*parsed.programPlace]);
    leavesInterruptToProgram = !IsWindowed(program.Get());
    const HANDLE ends[] = {program.Get(), endNow.Get()};
    if (WaitForMultipleObjects(2, ends, FALSE, INFINITE) != WAIT_OBJECT_0) return kSuccess;
    DWORD code = kFailure;
    GetExitCodeProcess(program.Get(), &code);
    return static_cast<int>(code);
}

}  // namespace

const Verb kTraceVerb = {"trace", "Runs a program and shows what the component does in it", kHelp, RunTrace};

}  // namespace tools
