// In-memory back ends of all ports. A test can replace one port in a set of ports.
#pragma once

#include <type_traits>

#include "runtime/Ports.h"
#include "runtime/headless/FixedProcess.h"
#include "runtime/headless/MemoryFiles.h"
#include "runtime/headless/MemorySettings.h"
#include "runtime/headless/MemoryWindows.h"
#include "runtime/headless/PlainLocale.h"
#include "runtime/headless/RecordingHelp.h"
#include "runtime/headless/ScriptedFonts.h"
#include "runtime/headless/ScriptedMessageBox.h"

namespace tests {

struct MemoryPorts {
    runtime::headless::MemoryWindows windows;
    runtime::headless::MemorySettings settings;
    runtime::headless::MemoryFiles files;
    runtime::headless::FixedProcess process;
    runtime::headless::PlainLocale locale;
    runtime::headless::ScriptedFonts fonts;
    runtime::headless::ScriptedMessageBox messageBox;
    runtime::headless::RecordingHelp help;

    runtime::Ports All() { return {windows, settings, files, process, locale, fonts, messageBox, help}; }
};

/// Returns a copy of `ports` in which `other` replaces the port with the same interface.
template <typename Other>
runtime::Ports WithPort(const runtime::Ports& ports, Other& other) {
    const auto choose = [&other]<typename Port>(Port& own) -> Port& {
        if constexpr (std::is_base_of_v<Port, Other>) {
            return other;
        } else {
            return own;
        }
    };
    return {choose(ports.windows), choose(ports.settings), choose(ports.files),      choose(ports.process),
            choose(ports.locale),  choose(ports.fonts),    choose(ports.messageBox), choose(ports.help)};
}

}  // namespace tests
