// The tests of the first-instance claim start this program. It claims to be the first process of the application, and
// reports by an event whether the claim succeeded. It keeps the claim until an event requests the release or the end.
//     claim_holder NAME
// The program sets the event NAME-claimed or NAME-refused. After NAME-give-up, it releases the claim and sets
// NAME-given-up. It ends after NAME-end, or after 30 seconds without an event.
#include "runtime/win32/Handle.h"
#include "runtime/win32/Win32Process.h"

int main() {
    using namespace runtime;
    using namespace runtime::win32;
    constexpr DWORD kMaxWait = 30'000;

    Win32Process process(nullptr);
    const String name = process.CommandLine();
    const auto open = [&name](StringView what) {
        return KernelHandle(OpenEventW(EVENT_ALL_ACCESS, FALSE, Wide(String(name).append(what))));
    };
    auto claim = process.ClaimFirstInstance();
    const KernelHandle answer = open(claim ? u"-claimed" : u"-refused");
    const KernelHandle giveUp = open(u"-give-up");
    const KernelHandle givenUp = open(u"-given-up");
    const KernelHandle end = open(u"-end");
    if (!answer || !giveUp || !givenUp || !end) return 2;
    SetEvent(answer.Get());
    const HANDLE orders[] = {end.Get(), giveUp.Get()};
    DWORD order = WaitForMultipleObjects(2, orders, FALSE, kMaxWait);
    if (order == WAIT_OBJECT_0 + 1) {
        claim.reset();
        SetEvent(givenUp.Get());
        order = WaitForSingleObject(end.Get(), kMaxWait);
    }
    return order == WAIT_OBJECT_0 ? 0 : 1;
}
