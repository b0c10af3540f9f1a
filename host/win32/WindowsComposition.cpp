#include "host/WindowsComposition.h"

#include <memory>
#include <utility>

#include "host/UnattendedDialogs.h"
#include "host/clsQmxBackProcess.h"
#include "kernel_api/win32/KernelLibrary.h"
#include "runtime/Ports.h"
#include "runtime/win32/GdiFonts.h"
#include "runtime/win32/HelpControl.h"
#include "runtime/win32/ModulePath.h"
#include "runtime/win32/RegistrySettings.h"
#include "runtime/win32/Switch.h"
#include "runtime/win32/Win32Files.h"
#include "runtime/win32/Win32Locale.h"
#include "runtime/win32/Win32MessageBox.h"
#include "runtime/win32/Win32Process.h"
#include "runtime/win32/Win32Windows.h"
#include "trace/Line.h"
#include "trace/Tracing.h"
#include "trace/win32/TraceFile.h"

namespace host {
namespace {

void WriteToDebugger(const runtime::String& line) {
    OutputDebugStringW(runtime::win32::Wide(line + u"\n"));
}

/// Returns null if the environment does not request a run without a user.
std::unique_ptr<UnattendedDialogs> UnattendedIfAsked() {
    if (!runtime::win32::IsSwitchedOn(kUnattendedVariable)) return nullptr;
    return std::make_unique<UnattendedDialogs>(WriteToDebugger);
}

/// Returns null if the environment does not name a file for the trace.
std::unique_ptr<trace::Tracing> TracingIfAsked(HINSTANCE module, bool isUnattended, const runtime::Ports& ports,
                                               kernel_api::Kernel& kernel) {
    std::unique_ptr<trace::Output> file = trace::win32::OpenFromEnvironment();
    if (!file) return nullptr;
    trace::Line("trace started")
        .Text("program", runtime::win32::ModulePath(nullptr))
        .Text("arguments", ports.process.CommandLine())
        .Text("component", runtime::win32::ModulePath(module))
        .Number("unattended", isUnattended)
        .WriteTo(*file);
    return std::make_unique<trace::Tracing>(std::move(file), ports, kernel);
}

/// The component of a process under Windows, with its platform classes.
struct WindowsComposition {
    explicit WindowsComposition(HINSTANCE module)
        : windows(module), process(module), tracing(TracingIfAsked(module, unattended != nullptr, ports, kernel)) {
        if (unattended) unattended->ReplaceSuiteDialogs();
        // Call Watch after ReplaceSuiteDialogs, so that the trace records the answers of the replaced dialogs.
        if (tracing) tracing->Watch(composition);
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
    const std::unique_ptr<trace::Tracing> tracing;
    Composition composition{tracing ? tracing->Ports() : ports, tracing ? tracing->Kernel() : kernel};
};

WindowsComposition& Composed(void* module) {
    // The object is never destroyed, because the system frees windows and libraries at the end of a process.
    static auto* const composed = new WindowsComposition(static_cast<HINSTANCE>(module));
    return *composed;
}

}  // namespace

Composition& EnsureComposed(void* module) {
    return Composed(module).composition;
}

std::unique_ptr<ServiceObject> NewServiceObject(void* module, NotifyServerEvent notifyServer) {
    const auto make = [](NotifyServerEvent event) { return std::make_unique<clsQmxBackProcess>(std::move(event)); };
    trace::Tracing* const tracing = Composed(module).tracing.get();
    if (tracing) return tracing->NewInstance(std::move(notifyServer), make);
    return make(std::move(notifyServer));
}

}  // namespace host
