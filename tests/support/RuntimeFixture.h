// Fixtures for tests that need the runtime's ports. Each test starts with new ports. At the end of each test, no ports
// are chosen.
#pragma once

#include <gtest/gtest.h>

#include "tests/support/MemoryPorts.h"

#ifdef _WIN32
#include "runtime/win32/Pixels.h"
#include "runtime/win32/Win32Windows.h"
#endif

namespace tests {

/// All ports are in memory. Tests use this fixture to read the ports' logs or to act in place of the window system.
class HeadlessTest : public ::testing::Test {
 protected:
    HeadlessTest() { runtime::UsePorts(&ports_); }
    ~HeadlessTest() override { runtime::UsePorts(nullptr); }

    /// Returns `length` rounded to whole pixels, as on the screen.
    runtime::Twips OnPixels(runtime::Twips length) const { return memory_.windows.Grid().Whole(length); }

    MemoryPorts memory_;
    runtime::Ports ports_ = memory_.All();
};

/// The port for windows depends on the build. It makes real windows in the Windows build, and windows in memory in
/// other builds. All other ports are in memory.
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
    /// Returns `length` rounded to whole pixels, as on the screen.
    runtime::Twips OnPixels(runtime::Twips length) const {
        return grid_.Whole(length);
    }

    runtime::Ports ports_ = WithPort(memory_.All(), windows_);
};

}  // namespace tests
