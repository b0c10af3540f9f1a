// Fixtures of the tests that need the runtime's ports: each test starts with fresh ones, and every process-wide value
// is put back to its start value.
#pragma once

#include <gtest/gtest.h>

#include "tests/support/MemoryPorts.h"

#ifdef _WIN32
#include "runtime/win32/Win32Windows.h"
#endif

namespace tests {

/// Everything in memory: for tests that read the twins' logs or play the window system.
class HeadlessTest : public ::testing::Test {
 protected:
    HeadlessTest() { runtime::UsePorts(&ports_); }
    ~HeadlessTest() override { runtime::UsePorts(nullptr); }

    MemoryPorts memory_;
    runtime::Ports ports_ = memory_.All();
};

/// The build's own window system, real windows under Windows; the other ports in memory.
class RuntimeTest : public ::testing::Test {
 protected:
    RuntimeTest() { runtime::UsePorts(&ports_); }
    ~RuntimeTest() override { runtime::UsePorts(nullptr); }

    MemoryPorts memory_;
#ifdef _WIN32
    runtime::win32::Win32Windows windows_{GetModuleHandleW(nullptr)};
#else
    runtime::headless::MemoryWindows& windows_ = memory_.windows;
#endif
    runtime::Ports ports_ = WithPort(memory_.All(), windows_);
};

}  // namespace tests
