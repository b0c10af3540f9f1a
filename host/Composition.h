// Composes the component and owns its process-wide parts. The DLL, the tool and the fixtures of the tests each make one
// Composition with their own ports and kernel. Use it only on the home thread. Any thread may call LoadedWindowCount
// and AbandonForms.
#pragma once

#include <cstddef>

#include "kernel_api/Kernel.h"
#include "kernel_api/builtin/BuiltInReader.h"
#include "kernel_api/builtin/BuiltInSplitter.h"
#include "runtime/Ports.h"
#include "services/ProcessValues.h"

namespace host {

class frmBackProcessMain;

class Composition {
 public:
    /// `ports` and `kernel` must outlive the object.
    Composition(const runtime::Ports& ports, kernel_api::Kernel& kernel);
    Composition(const Composition&) = delete;
    Composition& operator=(const Composition&) = delete;
    /// Unloads all loaded forms and ignores errors.
    ~Composition();

    kernel_api::builtin::BuiltInReader& Reader() { return reader_; }
    kernel_api::builtin::BuiltInSplitter& Splitter() { return splitter_; }

 private:
    kernel_api::builtin::BuiltInReader reader_;
    kernel_api::builtin::BuiltInSplitter splitter_;
    services::ProcessValues values_;
};

/// Returns the process's main form. The first call creates the form, but does not load it.
frmBackProcessMain& MainForm();
bool MainFormExists();

/// Returns the number of loaded forms. The component must stay in memory until the number is 0. Any thread may call.
std::size_t LoadedWindowCount();

/// Abandons all forms. Call the function when the forms' thread has ended or is no longer the home thread. The
/// caller may be another thread. Afterwards no form is loaded. A question that is still open on the old thread no
/// longer counts. Another thread may load the main form. The next question makes a new dialog.
void AbandonForms();

}  // namespace host
