// Fixtures of the tests that need the runtime's ports: each test starts with fresh ones, and every process-wide value
// is put back to its start value.
#pragma once

#include <gtest/gtest.h>

#include "tests/support/MemoryPorts.h"

#ifdef _WIN32
#include "runtime/win32/Pixels.h"
#include "runtime/win32/Win32Windows.h"
#endif

namespace tests {

/// Everything in memory: for tests that read the twins' logs or play the window system.
class HeadlessTest : public ::testing::Test {
 protected:
    HeadlessTest() { runtime::UsePorts(&ports_); }
    ~HeadlessTest() override { runtime::UsePorts(nullptr); }

    /// `length` as a form on the screen has it.
    runtime::Twips OnPixels(runtime::Twips length) const { return memory_.windows.Grid().Whole(length); }

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
    runtime::PixelGrid grid_{runtime::win32::ScreenDpi()};
#else
    runtime::headless::MemoryWindows& windows_ = memory_.windows;
    runtime::PixelGrid grid_ = memory_.windows.Grid();
#endif
    /// `length` as a form on the screen has it.
    runtime::Twips OnPixels(runtime::Twips length) const {
        return grid_.Whole(length);
    }

    runtime::Ports ports_ = WithPort(memory_.All(), windows_);
};

}  // namespace tests
