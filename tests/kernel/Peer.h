// Starts a second process that uses the development kernel, and sends commands to it through pipes. KernelPeer.cpp
// describes the commands.
#pragma once

#include <string>

#include "runtime/win32/Handle.h"

namespace tests::kernel {

/// Returns the development kernel's folder.
runtime::String KernelFolder();

/// A second process. Every wait for the process has a time limit. If a reply does not arrive in time, ReadReply
/// returns "no answer". If the process does not end in time, the test fails.
class Peer {
 public:
    Peer();
    Peer(const Peer&) = delete;
    Peer& operator=(const Peer&) = delete;
    /// Ends the process normally if it still runs.
    ~Peer();

    /// Sends `command`, whose fields are separated by tabs, and returns the reply.
    std::string Request(const std::string& command);
    void Send(const std::string& command);
    std::string ReadReply();
    /// Makes the process terminate itself.
    void Die();
    /// Ends the process immediately, even in the middle of a call.
    void Kill();

 private:
    void WaitForEnd();

    runtime::win32::KernelHandle process_;
    runtime::win32::KernelHandle toPeer_;
    runtime::win32::KernelHandle fromPeer_;
};

}  // namespace tests::kernel
