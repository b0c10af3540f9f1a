#include "tests/windows/RecordedHelp.h"

#include "tests/support/TestFolder.h"

namespace tests {

runtime::String RecordingHelp() {
    return TestFolder() + u"\\recording_help.ocx";
}

runtime::String RecordedHelp() {
    using Recorded = const wchar_t*(WINAPI*)();
    const HMODULE control = GetModuleHandleW(runtime::win32::Wide(RecordingHelp()));
    if (!control) return {};
    const FARPROC recorded = GetProcAddress(control, "Recorded");
    return runtime::win32::ToString(reinterpret_cast<Recorded>(reinterpret_cast<void*>(recorded))());
}

}  // namespace tests
