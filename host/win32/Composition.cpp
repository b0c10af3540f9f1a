#include "host/Composition.h"

#include <optional>

#include "dialogs/frmQMXMsgBox.h"
#include "host/ProcessLife.h"
#include "kernel_api/dev/BuiltInReader.h"
#include "kernel_api/dev/BuiltInSplitter.h"
#include "kernel_api/win32/KernelLibrary.h"
#include "routing/CommandInterpreter.h"
#include "runtime/Ports.h"
#include "runtime/win32/GdiFonts.h"
#include "runtime/win32/HelpControl.h"
#include "runtime/win32/RegistrySettings.h"
#include "runtime/win32/Win32Files.h"
#include "runtime/win32/Win32Locale.h"
#include "runtime/win32/Win32MessageBox.h"
#include "runtime/win32/Win32Process.h"
#include "runtime/win32/Win32Windows.h"
#include "services/MessageTexts.h"

namespace host {
namespace {

struct Composition {
    explicit Composition(HINSTANCE module)
        : windows(module), process(module), kernel(process.ComponentFolder()), reader(files, settings, locale) {
        reader.UseLanguageFolder([] { return routing::LanguagePath; });
        runtime::UsePorts(&ports);
        kernel_api::UseKernel(&kernel);
        kernel_api::UseReader(&reader);
        kernel_api::UseSplitter(&splitter);
        services::UseSuiteMessageBox(dialogs::AskWithSuiteBox);
    }
    Composition(const Composition&) = delete;
    Composition& operator=(const Composition&) = delete;
    ~Composition() {
        services::UseSuiteMessageBox({});
        ReleaseProcess();
        kernel_api::UseSplitter(nullptr);
        kernel_api::UseReader(nullptr);
        kernel_api::UseKernel(nullptr);
        runtime::UsePorts(nullptr);
    }

    runtime::win32::Win32Windows windows;
    runtime::win32::RegistrySettings settings;
    runtime::win32::Win32Files files;
    runtime::win32::Win32Process process;
    runtime::win32::Win32Locale locale;
    runtime::win32::GdiFonts fonts;
    runtime::win32::HelpControl help;
    runtime::win32::Win32MessageBox messageBox{help};
    runtime::Ports ports{windows, settings, files, process, locale, fonts, messageBox, help};
    kernel_api::win32::KernelLibrary kernel;
    kernel_api::dev::BuiltInReader reader;
    kernel_api::dev::BuiltInSplitter splitter;
};

std::optional<Composition>& Current() {
    // Never destroyed by itself: at the end of a process the system has its windows and libraries already.
    static auto* current = new std::optional<Composition>;
    return *current;
}

}  // namespace

void EnsureComposed(void* module) {
    if (!Current()) Current().emplace(static_cast<HINSTANCE>(module));
}

void Decompose() {
    Current().reset();
}

}  // namespace host
