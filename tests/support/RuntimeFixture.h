// Fixtures for tests that need the runtime's ports. Each test starts with fresh ports, and its end resets every
// process-wide value.
#pragma once

#include <gtest/gtest.h>

#include "tests/support/MemoryPorts.h"

#ifdef _WIN32
#include "runtime/win32/Pixels.h"
#include "runtime/win32/Win32Windows.h"
#endif

namespace tests {

/// All ports are in memory. For tests that read their logs or act as the window system.
class HeadlessTest : public ::testing::Test {
 protected:
    HeadlessTest() { runtime::UsePorts(&ports_); }
    ~HeadlessTest() override { runtime::UsePorts(nullptr); }

    /// `length` rounded to whole pixels, as a form on the screen has it.
    runtime::Twips OnPixels(runtime::Twips length) const { return memory_.windows.Grid().Whole(length); }

    MemoryPorts memory_;
    runtime::Ports ports_ = memory_.All();
};

/// The window system is the build's own: under Windows, the windows are real. All other ports are in memory.
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
    /// `length` rounded to whole pixels, as a form on the screen has it.
    runtime::Twips OnPixels(runtime::Twips length) const {
        return grid_.Whole(length);
    }

    runtime::Ports ports_ = WithPort(memory_.All(), windows_);
};

}  // namespace tests
