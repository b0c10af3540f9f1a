#include "tests/windows/RecordedHelp.h"

#include "runtime/win32/WindowsHeaders.h"

namespace tests {

runtime::String RecordedHelp() {
    using Recorded = const wchar_t*(WINAPI*)();
    const HMODULE control = GetModuleHandleW(kRecordingHelp);
    if (!control) return {};
    const FARPROC recorded = GetProcAddress(control, "Recorded");
    return runtime::win32::ToString(reinterpret_cast<Recorded>(reinterpret_cast<void*>(recorded))());
}

}  // namespace tests
