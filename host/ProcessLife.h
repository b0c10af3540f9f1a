// The process-wide main form, and what of the component is alive in this process.
#pragma once

#include <cstddef>

namespace host {

class frmBackProcessMain;

/// The process's main form, created (not loaded) by the first call.
frmBackProcessMain& MainForm();
bool MainFormExists();

/// How many forms have a window: while it is not 0 the component must stay in memory.
std::size_t LoadedWindowCount();

/// The thread that owns the forms has ended, or is home no more: no form is loaded and no question is open. The main
/// form may be loaded by another thread; dialogs are left to theirs.
void ForgetForms();

/// Puts every process-wide value of the component back to its start value. No form may be loaded.
void ReleaseProcess();

}  // namespace host
