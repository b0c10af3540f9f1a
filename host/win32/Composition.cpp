#include "host/Composition.h"

#include "dialogs/frmQMXMsgBox.h"
#include "kernel_api/builtin/BuiltInReader.h"
#include "kernel_api/builtin/BuiltInSplitter.h"
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
    ~Composition() = delete;

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
    kernel_api::builtin::BuiltInReader reader;
    kernel_api::builtin::BuiltInSplitter splitter;
};

}  // namespace

void EnsureComposed(void* module) {
    // Never destroyed: at the end of a process the system takes windows and libraries back itself.
    [[maybe_unused]] static const Composition* const composition = new Composition(static_cast<HINSTANCE>(module));
}

}  // namespace host
