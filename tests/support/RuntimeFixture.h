// Fixtures of the tests that need the runtime's ports: each test starts with fresh ones, and every process-wide value
// is put back to its start value.
#pragma once

#include <gtest/gtest.h>

#include "runtime/Ports.h"
#include "runtime/headless/FixedProcess.h"
#include "runtime/headless/MemoryFiles.h"
#include "runtime/headless/MemorySettings.h"
#include "runtime/headless/MemoryWindows.h"
#include "runtime/headless/PlainLocale.h"
#include "runtime/headless/RecordingHelp.h"
#include "runtime/headless/ScriptedFonts.h"
#include "runtime/headless/ScriptedMessageBox.h"

#ifdef _WIN32
#include "runtime/win32/Win32Windows.h"
#endif

namespace tests {

/// In-memory twins of all ports, on whatever system the tests run.
struct MemoryPorts {
    runtime::headless::MemoryWindows windows;
    runtime::headless::MemorySettings settings;
    runtime::headless::MemoryFiles files;
    runtime::headless::FixedProcess process;
    runtime::headless::PlainLocale locale;
    runtime::headless::ScriptedFonts fonts;
    runtime::headless::ScriptedMessageBox messageBox;
    runtime::headless::RecordingHelp help;
};

/// Everything in memory: for tests that read the twins' logs or play the window system.
class HeadlessTest : public ::testing::Test {
 protected:
    HeadlessTest() { runtime::UsePorts(&ports_); }
    ~HeadlessTest() override { runtime::UsePorts(nullptr); }

    MemoryPorts memory_;
    runtime::Ports ports_{memory_.windows, memory_.settings, memory_.files,      memory_.process,
                          memory_.locale,  memory_.fonts,    memory_.messageBox, memory_.help};
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
    runtime::Ports ports_{windows_,       memory_.settings, memory_.files,      memory_.process,
                          memory_.locale, memory_.fonts,    memory_.messageBox, memory_.help};
};

}  // namespace tests
