// The one composition: everything of the component that is process-wide. The DLL, the tool and the tests' fixtures each
// make one, over ports and a kernel of theirs. Its end puts everything back.
#pragma once

#include <cstddef>

#include "kernel_api/Kernel.h"
#include "kernel_api/builtin/BuiltInReader.h"
#include "kernel_api/builtin/BuiltInSplitter.h"
#include "runtime/Ports.h"
#include "services/ProcessValues.h"

namespace host {

class frmBackProcessMain;

class Process {
 public:
    /// `ports` and `kernel` must outlive it.
    Process(const runtime::Ports& ports, kernel_api::Kernel& kernel);
    Process(const Process&) = delete;
    Process& operator=(const Process&) = delete;
    /// Unloads the forms that are left, errors ignored.
    ~Process();

    kernel_api::builtin::BuiltInReader& Reader() { return reader_; }
    kernel_api::builtin::BuiltInSplitter& Splitter() { return splitter_; }

 private:
    kernel_api::builtin::BuiltInReader reader_;
    kernel_api::builtin::BuiltInSplitter splitter_;
    services::ProcessValues values_;
};

/// The process's main form, created (not loaded) by the first call.
frmBackProcessMain& MainForm();
bool MainFormExists();

/// How many forms have a window: while it is not 0 the component must stay in memory. Called from any thread.
std::size_t LoadedWindowCount();

/// The thread that owns the forms has ended, or is home no more: no form is loaded and no question is open. The main
/// form may be loaded by another thread; dialogs are left to theirs.
void AbandonForms();

}  // namespace host
