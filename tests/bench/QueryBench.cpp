// What it costs to open the suite's query dialog with a long list, beside a bare list box of the same size filled the
// same way: from the call until the window is shown and painted. The two take turns in one run; the medians, their
// ratio, and the time for each thousand items are printed for growing numbers of items.
//     query_bench [ROUNDS]
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

#include "dialogs/Qmxquery.h"
#include "tests/support/ComponentFixture.h"

namespace {

using runtime::String;

constexpr UINT kDialogIsShown = WM_APP;

HWND owner = nullptr;
LONGLONG shownAt = 0;

LONGLONG Now() {
    LARGE_INTEGER now{};
    QueryPerformanceCounter(&now);
    return now.QuadPart;
}

double Milliseconds(LONGLONG ticks) {
    LARGE_INTEGER frequency{};
    QueryPerformanceFrequency(&frequency);
    return static_cast<double>(ticks) * 1000 / static_cast<double>(frequency.QuadPart);
}

bool IsDialog(HWND window) {
    return window != owner && GetWindow(window, GW_OWNER) == owner;
}

LRESULT CALLBACK SeeMessage(int code, WPARAM wParam, LPARAM lParam) noexcept {
    const auto& sent = *reinterpret_cast<const CWPSTRUCT*>(lParam);
    if (code == HC_ACTION && sent.message == WM_WINDOWPOSCHANGED && IsDialog(sent.hwnd)) {
        const auto& change = *reinterpret_cast<const WINDOWPOS*>(sent.lParam);
        if (change.flags & SWP_SHOWWINDOW) PostMessageW(owner, kDialogIsShown, reinterpret_cast<WPARAM>(sent.hwnd), 0);
    }
    return CallNextHookEx(nullptr, code, wParam, lParam);
}

LRESULT CALLBACK OwnerProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) noexcept {
    if (message != kDialogIsShown) return DefWindowProcW(window, message, wParam, lParam);
    const auto dialog = reinterpret_cast<HWND>(wParam);
    RedrawWindow(dialog, nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
    shownAt = Now();
    PostMessageW(FindWindowExW(dialog, nullptr, L"BUTTON", L"Accept"), BM_CLICK, 0, 0);
    return 0;
}

HWND MakeOwner() {
    WNDCLASSW windowClass{};
    windowClass.lpfnWndProc = OwnerProcedure;
    windowClass.hInstance = GetModuleHandleW(nullptr);
    windowClass.lpszClassName = L"QueryBench.Owner";
    RegisterClassW(&windowClass);
    const HWND made = CreateWindowExW(0, windowClass.lpszClassName, L"owner", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 50, 50,
                                      600, 400, nullptr, nullptr, windowClass.hInstance, nullptr);
    SetForegroundWindow(made);
    SetActiveWindow(made);
    return made;
}

std::vector<String> Values(int items) {
    std::vector<String> values = {u""};
    for (int i = 1; i <= items; ++i) values.push_back(u"Item number " + runtime::FromAscii(std::to_string(i)));
    return values;
}

double TimeOfDialog(std::vector<String> values) {
    const auto last = static_cast<std::int32_t>(values.size()) - 1;
    std::int32_t index = last - 1;
    const LONGLONG start = Now();
    dialogs::AskQuery(u"Title", u"Which one?", values, dialogs::kList, index, false, u"");
    if (index != last) {
        std::fprintf(stderr, "wrong answer %d\n", static_cast<int>(index));
        std::exit(1);
    }
    return Milliseconds(shownAt - start);
}

double TimeOfListBox(const std::vector<String>& values) {
    const LONGLONG start = Now();
    const HWND list = CreateWindowExW(WS_EX_CLIENTEDGE, L"LISTBOX", nullptr, WS_CHILD | WS_VSCROLL | LBS_NOTIFY, 4, 75,
                                      365, 56, owner, nullptr, GetModuleHandleW(nullptr), nullptr);
    for (std::size_t i = 1; i < values.size(); ++i) {
        SendMessageW(list, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(runtime::win32::Wide(values[i])));
    }
    SendMessageW(list, LB_SETCURSEL, values.size() - 2, 0);
    ShowWindow(list, SW_SHOW);
    UpdateWindow(list);
    const LONGLONG end = Now();
    DestroyWindow(list);
    return Milliseconds(end - start);
}

double MedianOf(std::vector<double> times) {
    const auto middle = times.begin() + static_cast<std::ptrdiff_t>(times.size() / 2);
    std::nth_element(times.begin(), middle, times.end());
    return *middle;
}

void Compare(int items, int rounds) {
    const std::vector<String> values = Values(items);
    std::vector<double> dialog;
    std::vector<double> bare;
    for (int i = -1; i < rounds; ++i) {
        const double ours = TimeOfDialog(values);
        const double theirs = TimeOfListBox(values);
        if (i < 0) continue;
        dialog.push_back(ours);
        bare.push_back(theirs);
    }
    std::printf("%6d items  dialog %8.2f ms  bare list box %8.2f ms  ratio %5.2f  dialog per thousand %6.2f ms\n",
                items, MedianOf(dialog), MedianOf(bare), MedianOf(dialog) / MedianOf(bare),
                MedianOf(dialog) * 1000 / items);
}

/// The component's surroundings, without a test.
class Bench : public tests::ComponentTest {
    void TestBody() override {}
};

}  // namespace

int main(int argc, char** argv) {
    constexpr int kRounds = 15;
    const int rounds = argc > 1 ? std::max(1, std::atoi(argv[1])) : kRounds;
    const Bench surroundings;
    owner = MakeOwner();
    const HHOOK hook = SetWindowsHookExW(WH_CALLWNDPROC, SeeMessage, nullptr, GetCurrentThreadId());
    for (const int items : {1'250, 2'500, 5'000, 10'000, 20'000}) Compare(items, rounds);
    UnhookWindowsHookEx(hook);
    dialogs::ReleaseQuery();
    DestroyWindow(owner);
}
