// Dispatches window messages while the caller waits.
#include "tools/MessagePump.h"

namespace tools {

namespace {

using Clock = std::chrono::steady_clock;

/// Returns true if `handle` was signalled. Returns false if messages arrived or the time ran out.
bool WaitOnce(DWORD handles, const HANDLE* handle, DWORD milliseconds) {
    return MsgWaitForMultipleObjectsEx(handles, handle, milliseconds, QS_ALLINPUT, MWMO_INPUTAVAILABLE) ==
               WAIT_OBJECT_0 &&
           handles == 1;
}

}  // namespace

void PumpPending() {
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
}

void PumpFor(std::chrono::milliseconds time) {
    const Clock::time_point end = Clock::now() + time;
    PumpPending();
    for (Clock::time_point now = Clock::now(); now < end; now = Clock::now()) {
        const auto left = std::chrono::ceil<std::chrono::milliseconds>(end - now);
        WaitOnce(0, nullptr, static_cast<DWORD>(left.count()));
        PumpPending();
    }
}

void PumpUntil(HANDLE handle) {
    PumpPending();
    while (!WaitOnce(1, &handle, INFINITE)) PumpPending();
}

}  // namespace tools
