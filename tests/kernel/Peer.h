// A second process that uses the development kernel, driven through pipes. KernelPeer.cpp has its commands.
#pragma once

#include <string>

#include "runtime/win32/Handle.h"

namespace tests::kernel {

/// The development kernel's folder.
runtime::String KernelFolder();

/// Every wait is bounded. The reply is "no answer" if the time runs out.
class Peer {
 public:
    Peer();
    Peer(const Peer&) = delete;
    Peer& operator=(const Peer&) = delete;
    /// Ends the process normally, unless it has ended already.
    ~Peer();

    /// Sends `command`, whose fields are separated by tabs, and returns the reply.
    std::string Ask(const std::string& command);
    void Tell(const std::string& command);
    std::string Answer();
    /// Makes the process terminate itself.
    void Die();
    /// Kills the process at any point of its work.
    void Kill();

 private:
    void WaitForEnd();

    runtime::win32::KernelHandle process_;
    runtime::win32::KernelHandle toPeer_;
    runtime::win32::KernelHandle fromPeer_;
};

}  // namespace tests::kernel
