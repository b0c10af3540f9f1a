// What the suite's own message box costs beside the system's: from the call until it has returned, with a box that is
// shown, painted and answered by a click as soon as it is there. The two take turns in one run; the medians and their
// ratio are printed.
//     box_bench [ROUNDS]
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <vector>

#include "dialogs/frmQMXMsgBox.h"
#include "kernel_api/dev/BuiltInReader.h"
#include "kernel_api/dev/InMemoryKernel.h"
#include "runtime/Ports.h"
#include "runtime/headless/FixedProcess.h"
#include "runtime/headless/MemoryFiles.h"
#include "runtime/headless/MemorySettings.h"
#include "runtime/headless/PlainLocale.h"
#include "runtime/headless/RecordingHelp.h"
#include "runtime/headless/ScriptedFonts.h"
#include "runtime/headless/ScriptedMessageBox.h"
#include "runtime/win32/Win32Windows.h"

namespace {

constexpr UINT kBoxIsShown = WM_APP;
constexpr std::int32_t kYes = 6;

HWND owner = nullptr;

bool IsBox(HWND window) {
    return window != owner && GetWindow(window, GW_OWNER) == owner;
}

LRESULT CALLBACK SeeMessage(int code, WPARAM wParam, LPARAM lParam) noexcept {
    const auto& sent = *reinterpret_cast<const CWPSTRUCT*>(lParam);
    if (code == HC_ACTION && sent.message == WM_WINDOWPOSCHANGED && IsBox(sent.hwnd)) {
        const auto& change = *reinterpret_cast<const WINDOWPOS*>(sent.lParam);
        if (change.flags & SWP_SHOWWINDOW) PostMessageW(owner, kBoxIsShown, reinterpret_cast<WPARAM>(sent.hwnd), 0);
    }
    return CallNextHookEx(nullptr, code, wParam, lParam);
}

LRESULT CALLBACK OwnerProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) noexcept {
    if (message != kBoxIsShown) return DefWindowProcW(window, message, wParam, lParam);
    const auto box = reinterpret_cast<HWND>(wParam);
    RedrawWindow(box, nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
    PostMessageW(FindWindowExW(box, nullptr, L"BUTTON", L"&Yes"), BM_CLICK, 0, 0);
    return 0;
}

HWND MakeOwner() {
    WNDCLASSW windowClass{};
    windowClass.lpfnWndProc = OwnerProcedure;
    windowClass.hInstance = GetModuleHandleW(nullptr);
    windowClass.lpszClassName = L"BoxBench.Owner";
    RegisterClassW(&windowClass);
    const HWND made = CreateWindowExW(0, windowClass.lpszClassName, L"owner", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 50, 50,
                                      300, 200, nullptr, nullptr, windowClass.hInstance, nullptr);
    SetForegroundWindow(made);
    SetActiveWindow(made);
    return made;
}

std::int32_t AskOurs() {
    return dialogs::AskWithSuiteBox(u"Overwrite?", 8, u"Title");
}

std::int32_t AskSystem() {
    return MessageBoxW(owner, L"Overwrite?", L"Title", MB_YESNOCANCEL | MB_ICONQUESTION);
}

/// In milliseconds.
double TimeOf(const std::function<std::int32_t()>& ask) {
    LARGE_INTEGER frequency{};
    LARGE_INTEGER start{};
    LARGE_INTEGER end{};
    QueryPerformanceFrequency(&frequency);
    QueryPerformanceCounter(&start);
    const std::int32_t answer = ask();
    QueryPerformanceCounter(&end);
    if (answer != kYes) {
        std::fprintf(stderr, "wrong answer %d\n", static_cast<int>(answer));
        std::exit(1);
    }
    return static_cast<double>(end.QuadPart - start.QuadPart) * 1000 / static_cast<double>(frequency.QuadPart);
}

double MedianOf(std::vector<double> times) {
    const auto middle = times.begin() + static_cast<std::ptrdiff_t>(times.size() / 2);
    std::nth_element(times.begin(), middle, times.end());
    return *middle;
}

}  // namespace

int main(int argc, char** argv) {
    namespace headless = runtime::headless;
    constexpr int kWarmUp = 10;
    constexpr int kRounds = 200;
    const int rounds = argc > 1 ? std::max(1, std::atoi(argv[1])) : kRounds;

    runtime::win32::Win32Windows windows(GetModuleHandleW(nullptr));
    headless::MemorySettings settings;
    headless::MemoryFiles files;
    headless::FixedProcess process;
    headless::PlainLocale locale;
    headless::ScriptedFonts fonts;
    headless::ScriptedMessageBox messageBox;
    headless::RecordingHelp help;
    const runtime::Ports ports{windows, settings, files, process, locale, fonts, messageBox, help};
    runtime::UsePorts(&ports);
    kernel_api::dev::InMemoryKernel kernel;
    kernel_api::dev::BuiltInReader reader(files, settings, locale);
    kernel_api::UseKernel(&kernel);
    kernel_api::UseReader(&reader);
    owner = MakeOwner();
    const HHOOK hook = SetWindowsHookExW(WH_CALLWNDPROC, SeeMessage, nullptr, GetCurrentThreadId());

    std::vector<double> ours;
    std::vector<double> system;
    for (int i = -kWarmUp; i < rounds; ++i) {
        const double our = TimeOf(AskOurs);
        const double theirs = TimeOf(AskSystem);
        if (i < 0) continue;
        ours.push_back(our);
        system.push_back(theirs);
    }
    std::printf("suite's box   %.2f ms\nsystem's box  %.2f ms\nratio         %.2f\n", MedianOf(ours), MedianOf(system),
                MedianOf(ours) / MedianOf(system));

    UnhookWindowsHookEx(hook);
    dialogs::ReleaseSuiteBox();
    DestroyWindow(owner);
    kernel_api::UseReader(nullptr);
    kernel_api::UseKernel(nullptr);
    runtime::UsePorts(nullptr);
}
