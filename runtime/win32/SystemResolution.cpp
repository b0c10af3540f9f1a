#include "runtime/win32/SystemResolution.h"

#include "runtime/win32/UserEntry.h"

namespace runtime::win32 {
namespace {

// The Windows headers declare these names for newer systems only.
using GetContext = HANDLE WINAPI();
using SetContext = HANDLE WINAPI(HANDLE);
using AwarenessOf = int WINAPI(HANDLE);
constexpr int kAwareOfEachMonitor = 2;
constexpr LONG_PTR kAwareOfTheSystem = -2;

}  // namespace

SystemResolution::SystemResolution() {
    const auto current = UserEntry<GetContext>("GetThreadDpiAwarenessContext");
    const auto awarenessOf = UserEntry<AwarenessOf>("GetAwarenessFromDpiAwarenessContext");
    const auto choose = UserEntry<SetContext>("SetThreadDpiAwarenessContext");
    if (!current || !awarenessOf || !choose || awarenessOf(current()) != kAwareOfEachMonitor) return;
    before_ = choose(reinterpret_cast<HANDLE>(kAwareOfTheSystem));
}

SystemResolution::~SystemResolution() {
    if (before_) UserEntry<SetContext>("SetThreadDpiAwarenessContext")(before_);
}

}  // namespace runtime::win32
