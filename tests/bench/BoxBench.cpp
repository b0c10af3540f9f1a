// Compares the time of the suite's message box with that of the system's: from the call until it returns, with a box
// that is shown, painted and clicked at once. Both alternate in one run. Prints the medians and their ratio.
//     box_bench [ROUNDS]
#include <cstdio>
#include <cstdlib>

#include "dialogs/frmQMXMsgBox.h"
#include "host/Composition.h"
#include "runtime/win32/Win32Windows.h"
#include "tests/bench/AnsweringOwner.h"
#include "tests/support/InMemoryKernel.h"
#include "tests/support/MemoryPorts.h"

namespace {

constexpr std::int32_t kYes = 6;

void Check(std::int32_t answer) {
    if (answer == kYes) return;
    std::fprintf(stderr, "wrong answer %d\n", static_cast<int>(answer));
    std::exit(1);
}

void AskOurs() {
    Check(dialogs::AskWithSuiteBox(u"Overwrite?", 8, u"Title"));
}

void AskSystem(HWND owner) {
    Check(MessageBoxW(owner, L"Overwrite?", L"Title", MB_YESNOCANCEL | MB_ICONQUESTION));
}

void Compare(int rounds) {
    constexpr int kWarmUp = 10;
    const tests::AnsweringOwner owner(L"&Yes");
    const tests::Medians times = tests::InTurns(
        kWarmUp, rounds, [] { return tests::TimeOf<std::milli>(AskOurs); },
        [&] { return tests::TimeOf<std::milli>([&] { AskSystem(owner.Handle()); }); });
    std::printf("suite's box   %.2f ms\nsystem's box  %.2f ms\nratio         %.2f\n", times.ours, times.theirs,
                times.Ratio());
}

}  // namespace

int main(int argc, char** argv) {
    constexpr int kRounds = 200;
    tests::MemoryPorts memory;
    runtime::win32::Win32Windows windows(GetModuleHandleW(nullptr));
    const runtime::Ports ports = tests::WithPort(memory.All(), windows);
    tests::InMemoryKernel kernel;
    const host::Composition composition(ports, kernel);
    Compare(tests::CountFrom(argc, argv, kRounds));
}
