#include "runtime/win32/SystemResolution.h"

namespace runtime::win32 {
namespace {

// The Windows headers declare these names for newer systems only.
using GetContext = HANDLE WINAPI();
using SetContext = HANDLE WINAPI(HANDLE);
using AwarenessOf = int WINAPI(HANDLE);
constexpr int kAwareOfEachMonitor = 2;
constexpr LONG_PTR kAwareOfTheSystem = -2;

template <typename Function>
Function* WindowEntry(const char* name) {
    return reinterpret_cast<Function*>(reinterpret_cast<void*>(GetProcAddress(GetModuleHandleW(L"user32"), name)));
}

}  // namespace

SystemResolution::SystemResolution() {
    const auto current = WindowEntry<GetContext>("GetThreadDpiAwarenessContext");
    const auto awarenessOf = WindowEntry<AwarenessOf>("GetAwarenessFromDpiAwarenessContext");
    const auto choose = WindowEntry<SetContext>("SetThreadDpiAwarenessContext");
    if (!current || !awarenessOf || !choose || awarenessOf(current()) != kAwareOfEachMonitor) return;
    before_ = choose(reinterpret_cast<HANDLE>(kAwareOfTheSystem));
}

SystemResolution::~SystemResolution() {
    if (before_) WindowEntry<SetContext>("SetThreadDpiAwarenessContext")(before_);
}

}  // namespace runtime::win32
