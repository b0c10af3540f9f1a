// Help: opens the suite's compiled help from the component's windows, and closes it when the main form unloads. The
// name of the help file (ProcessValues::helpFilePath) has the extension of the old help format; what is opened is the
// file of the same name with "chm" in place of its last three characters.
#pragma once

#include <cstdint>

#include "runtime/NativeHandle.h"
#include "runtime/Text.h"

namespace services {

/// The name of the suite's help file in ProcessValues::installFolder, as ProcessValues::helpFilePath holds it.
runtime::String HelpFileOfInstallation();

/// The file that is opened. Error 5 while the help file name has less than three characters.
runtime::String CompiledHelpName();

// Both open the table of contents, owned by the main form's window. As any access to its window, that loads a main form
// which has been unloaded. Error 5 as above, so also before the first load of the main form, which sets the name.

/// The help stays open when the main form unloads.
void ShowHelpContents();
/// Nothing unless `wanted`; the unload of the main form closes help that was opened in this way. `file` and `topic`,
/// which callers name, are not used: there is one help file, and it opens at its contents.
void ShowHelpTopic(runtime::StringView file, std::int32_t topic, std::int16_t& wanted);

/// Closes all help windows when ShowHelpTopic has opened help since the last call. An error of the viewer passes; the
/// next call does nothing all the same.
void CloseHelp(runtime::NativeHandle window);

}  // namespace services
