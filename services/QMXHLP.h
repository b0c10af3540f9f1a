// Opens the suite's compiled help from the component's windows. Closes the help when the main form unloads. The name of
// the help file (ProcessValues::helpFilePath) has the extension of the old help format. In the name of the opened file,
// "chm" replaces the last three characters. Call the functions only on the home thread.
#pragma once

#include <cstdint>

#include "runtime/NativeHandle.h"
#include "runtime/Text.h"

namespace services {

/// Returns the path of the suite's help file in ProcessValues::installFolder. The path has the extension of the old
/// help format.
runtime::String HelpFileOfInstallation();

/// Returns the name of the file to open. Error 5 if ProcessValues::helpFilePath has fewer than three characters.
runtime::String CompiledHelpName();

// ShowHelpContents and ShowHelpTopic open the table of contents. The main form's window owns the help window. The
// functions first check the name of the help file and raise error 5 if the name is too short. After this check, they
// load the main form if it is unloaded. In a client, the name is empty until the first load of the main form sets the
// name.

/// Opens help. The unload of the main form does not close this help, unless ShowHelpTopic has also opened help.
void ShowHelpContents();
/// Opens help. The unload of the main form closes all help. Does nothing if `wanted` is 0. Does not use `file` and
/// `topic`, because there is only one help file and it opens at its contents.
void ShowHelpTopic(runtime::StringView file, std::int32_t topic, std::int16_t& wanted);

/// Closes all help windows if ShowHelpTopic has opened help since the last call. If the viewer fails, throws the error.
/// The next call does not try to close the help again.
void CloseHelp(runtime::NativeHandle window);

}  // namespace services
