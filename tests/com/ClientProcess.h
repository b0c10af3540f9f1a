// Another process that is a client of the component: com_client.exe, which the build puts beside the tests.
#pragma once

#include <optional>
#include <string>

#include "runtime/win32/Handle.h"

namespace tests::com {

class ClientProcess {
 public:
    /// Starts com_client with `arguments`; fails the test when it does not start.
    explicit ClientProcess(const std::wstring& arguments);
    ClientProcess(const ClientProcess&) = delete;
    ClientProcess& operator=(const ClientProcess&) = delete;
    /// Kills it.
    ~ClientProcess() { Kill(); }

    /// Serves this thread's messages until `event` is set or the process ends. False when it takes too long, or when
    /// the process has ended first.
    bool WaitFor(HANDLE event) const;
    /// Its exit code; none when it takes too long.
    std::optional<DWORD> ExitCode() const;
    /// Returns when it is gone.
    void Kill() const;

 private:
    runtime::win32::KernelHandle process_;
};

}  // namespace tests::com
