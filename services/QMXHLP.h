// Help: opens the suite's compiled help from the component's windows, and closes it when the main form unloads. The
// name of the help file (ProcessValues::helpFilePath) has the extension of the old help format. The name of the file
// that is opened has "chm" in place of the last three characters. Home thread only.
#pragma once

#include <cstdint>

#include "runtime/NativeHandle.h"
#include "runtime/Text.h"

namespace services {

/// The path of the suite's help file in ProcessValues::installFolder, with the extension of the old help format.
runtime::String HelpFileOfInstallation();

/// The name of the file that is opened. Error 5 if ProcessValues::helpFilePath has fewer than three characters.
runtime::String CompiledHelpName();

// Both functions open the table of contents, owned by the main form's window. They load the main form if it is
// unloaded. Error 5 as above, and therefore before the first load of the main form, because that load sets the name.

/// Opens help that stays open when the main form unloads.
void ShowHelpContents();
/// Opens help that the unload of the main form closes. Does nothing if `wanted` is 0. `file` and `topic` are not used,
/// because there is only one help file and it opens at its contents.
void ShowHelpTopic(runtime::StringView file, std::int32_t topic, std::int16_t& wanted);

/// Closes all help windows if ShowHelpTopic has opened help since the last call. An error of the viewer reaches the
/// caller; the close is not repeated at the next call.
void CloseHelp(runtime::NativeHandle window);

}  // namespace services
