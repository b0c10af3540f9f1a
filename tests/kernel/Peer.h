// Another process with the development kernel, driven through pipes: see KernelPeer.cpp for what it can be asked.
#pragma once

#include <string>

#include "runtime/win32/Handle.h"

namespace tests::kernel {

/// Folder of the development kernel.
runtime::String KernelFolder();

/// Every wait is bounded; what takes too long answers "no answer".
class Peer {
 public:
    Peer();
    Peer(const Peer&) = delete;
    Peer& operator=(const Peer&) = delete;
    /// Ends the process the orderly way, unless it has died.
    ~Peer();

    /// `command` has its fields between tabs.
    std::string Ask(const std::string& command);
    void Tell(const std::string& command);
    std::string Answer();
    /// Lets the process die at a point of its own.
    void Die();
    /// Kills the process wherever it is.
    void Kill();

 private:
    void WaitForEnd();

    runtime::win32::KernelHandle process_;
    runtime::win32::KernelHandle toPeer_;
    runtime::win32::KernelHandle fromPeer_;
};

}  // namespace tests::kernel
