// Starts com_client.exe, a client of the component in another process. The program is in the folder of the tests.
#pragma once

#include <optional>
#include <string>

#include "runtime/win32/Handle.h"

namespace tests::com {

class ClientProcess {
 public:
    /// Starts com_client with `arguments`. Fails the test if the program does not start.
    explicit ClientProcess(const std::wstring& arguments);
    ClientProcess(const ClientProcess&) = delete;
    ClientProcess& operator=(const ClientProcess&) = delete;
    /// Kills the process.
    ~ClientProcess() { Kill(); }

    /// Dispatches this thread's messages until `event` is set. Returns false if the process ends first or the time is
    /// over.
    bool WaitFor(HANDLE event) const;
    /// Waits for the exit code. Returns no value if the time is over.
    std::optional<DWORD> ExitCode() const;
    /// Kills the process and waits for its end.
    void Kill() const;

 private:
    runtime::win32::KernelHandle process_;
};

}  // namespace tests::com
