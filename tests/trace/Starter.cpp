// Starts programs for the tests of `backproc trace`.
//     starter leave COMMAND LINE      starts the command line and ends at once
//     starter interrupt COMMAND LINE  starts the command line, sends Ctrl+C while windowed.exe runs, and returns the
//                                     command line's exit code
#include <cstdio>
#include <cstdlib>

#include "runtime/CommandLine.h"
#include "runtime/win32/Handle.h"
#include "runtime/win32/WindowsHeaders.h"

namespace {

using runtime::win32::KernelHandle;

constexpr int kMaxLooks = 120;
constexpr DWORD kPause = 500;  // milliseconds

PROCESS_INFORMATION Start(runtime::String commandLine) {
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION started{};
    if (!CreateProcessW(nullptr, runtime::win32::Wide(commandLine.data()), nullptr, nullptr, TRUE, 0, nullptr, nullptr,
                        &startup, &started)) {
        std::printf("cannot start: %lu\n", GetLastError());
        std::exit(EXIT_FAILURE);
    }
    return started;
}

bool IsWindowedProgramRunning() {
    return static_cast<bool>(KernelHandle(OpenEventW(SYNCHRONIZE, FALSE, L"K4T windowed program")));
}

BOOL WINAPI IgnoreInterrupt(DWORD) {
    return TRUE;
}

/// Sends Ctrl+C repeatedly, because `backproc trace` may not be ready for the first one. Needs a console.
int Interrupt(const runtime::String& commandLine) {
    SetConsoleCtrlHandler(IgnoreInterrupt, TRUE);
    const PROCESS_INFORMATION started = Start(commandLine);
    const KernelHandle process(started.hProcess);
    const KernelHandle thread(started.hThread);
    for (int i = 0; i < kMaxLooks && WaitForSingleObject(process.Get(), kPause) == WAIT_TIMEOUT; ++i) {
        constexpr DWORD kAllOfTheConsole = 0;
        if (IsWindowedProgramRunning()) GenerateConsoleCtrlEvent(CTRL_C_EVENT, kAllOfTheConsole);
    }
    DWORD code = 0;
    GetExitCodeProcess(process.Get(), &code);
    return static_cast<int>(code);
}

}  // namespace

int main() {
    const runtime::StringView arguments = runtime::WithoutProgramName(runtime::win32::Utf16(GetCommandLineW()));
    const runtime::String commandLine(runtime::WithoutFirstArgument(arguments));
    if (arguments.starts_with(u"interrupt")) return Interrupt(commandLine);
    Start(commandLine);
    return EXIT_SUCCESS;
}
