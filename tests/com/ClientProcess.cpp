#include "tests/com/ClientProcess.h"

#include <gtest/gtest.h>

#include "tests/com/ComTest.h"
#include "tests/support/TestFolder.h"

namespace tests::com {
namespace {

constexpr DWORD kMaxWait = 30'000;  // milliseconds

}  // namespace

ClientProcess::ClientProcess(const std::wstring& arguments) {
    const String program = TestFolder() + u"\\com_client.exe";
    std::wstring line = L'"' + std::wstring(runtime::win32::Wide(program)) + L"\" " + arguments;
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION started{};
    EXPECT_TRUE(CreateProcessW(nullptr, line.data(), nullptr, nullptr, FALSE, CREATE_NO_WINDOW, nullptr, nullptr,
                               &startup, &started))
        << GetLastError();
    process_.Reset(started.hProcess);
    if (started.hThread != nullptr) CloseHandle(started.hThread);
}

bool ClientProcess::WaitFor(HANDLE event) const {
    const HANDLE handles[] = {event, process_.Get()};
    const ULONGLONG end = GetTickCount64() + kMaxWait;
    while (GetTickCount64() < end) {
        const DWORD woken = MsgWaitForMultipleObjects(2, handles, FALSE, 100, QS_ALLINPUT);
        if (woken == WAIT_OBJECT_0) return true;
        if (woken == WAIT_OBJECT_0 + 1) return false;
        ServeMessages();
    }
    return false;
}

std::optional<DWORD> ClientProcess::ExitCode() const {
    if (WaitForSingleObject(process_.Get(), kMaxWait) != WAIT_OBJECT_0) return {};
    DWORD code = 0;
    GetExitCodeProcess(process_.Get(), &code);
    return code;
}

void ClientProcess::Kill() const {
    TerminateProcess(process_.Get(), 3);
    WaitForSingleObject(process_.Get(), kMaxWait);
}

}  // namespace tests::com
