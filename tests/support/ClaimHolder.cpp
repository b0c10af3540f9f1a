// A program for tests of the first-instance claim: claims, tells by its events what came of it, and keeps what it got
// until it is told to end.
//     claim_holder NAME
// sets the event NAME-claimed or NAME-refused, and ends when NAME-end is set, at the latest after 30 seconds.
#include "runtime/win32/Handle.h"
#include "runtime/win32/Win32Process.h"

int main() {
    using namespace runtime;
    using namespace runtime::win32;
    constexpr DWORD kLongestWait = 30'000;

    Win32Process process(nullptr);
    const String name = process.CommandLine();
    const auto open = [&name](StringView what) {
        return KernelHandle(OpenEventW(EVENT_ALL_ACCESS, FALSE, Wide(String(name).append(what))));
    };
    const auto claim = process.ClaimFirstInstance();
    const KernelHandle answer = open(claim ? u"-claimed" : u"-refused");
    const KernelHandle end = open(u"-end");
    if (!answer || !end) return 2;
    SetEvent(answer.Get());
    return WaitForSingleObject(end.Get(), kLongestWait) == WAIT_OBJECT_0 ? 0 : 1;
}
