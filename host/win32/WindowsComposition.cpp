#include "host/WindowsComposition.h"

#include <memory>

#include "host/UnattendedDialogs.h"
#include "kernel_api/win32/KernelLibrary.h"
#include "runtime/Ports.h"
#include "runtime/win32/GdiFonts.h"
#include "runtime/win32/HelpControl.h"
#include "runtime/win32/RegistrySettings.h"
#include "runtime/win32/Switch.h"
#include "runtime/win32/Win32Files.h"
#include "runtime/win32/Win32Locale.h"
#include "runtime/win32/Win32MessageBox.h"
#include "runtime/win32/Win32Process.h"
#include "runtime/win32/Win32Windows.h"

namespace host {
namespace {

void WriteToDebugger(const runtime::String& line) {
    OutputDebugStringW(runtime::win32::Wide(line + u"\n"));
}

/// Null unless the environment variable requests a run without a user.
std::unique_ptr<UnattendedDialogs> UnattendedIfAsked() {
    if (!runtime::win32::IsSwitchedOn(kUnattendedVariable)) return nullptr;
    return std::make_unique<UnattendedDialogs>(WriteToDebugger);
}

/// The component of a process under Windows, with its back ends.
struct WindowsComposition {
    explicit WindowsComposition(HINSTANCE module) : windows(module), process(module) {
        if (unattended) unattended->ReplaceSuiteDialogs();
    }
    WindowsComposition(const WindowsComposition&) = delete;
    WindowsComposition& operator=(const WindowsComposition&) = delete;
    ~WindowsComposition() = delete;

    runtime::win32::Win32Windows windows;
    runtime::win32::RegistrySettings settings;
    runtime::win32::Win32Files files;
    runtime::win32::Win32Process process;
    runtime::win32::Win32Locale locale;
    runtime::win32::GdiFonts fonts;
    runtime::win32::HelpControl help;
    runtime::win32::Win32MessageBox systemBox{help};
    const std::unique_ptr<UnattendedDialogs> unattended = UnattendedIfAsked();
    runtime::MessageBoxPort& messageBox = unattended ? static_cast<runtime::MessageBoxPort&>(*unattended) : systemBox;
    const runtime::Ports ports{windows, settings, files, process, locale, fonts, messageBox, help};
    kernel_api::win32::KernelLibrary kernel{process.ComponentFolder()};
    Composition composition{ports, kernel};
};

}  // namespace

Composition& EnsureComposed(void* module) {
    // Never destroyed, because the system frees windows and libraries at the end of a process.
    static auto* const composed = new WindowsComposition(static_cast<HINSTANCE>(module));
    return composed->composition;
}

}  // namespace host
