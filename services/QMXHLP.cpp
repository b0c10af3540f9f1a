#include "services/QMXHLP.h"

#include <cstddef>

#include "runtime/Error.h"
#include "runtime/Form.h"
#include "runtime/Ports.h"
#include "services/ProcessValues.h"

namespace services {
namespace {

using runtime::NativeHandle;

/// The suite's value for true: all bits set.
constexpr std::int16_t kTrue = -1;

NativeHandle MainWindow() {
    const auto& form = Values().forms.main;
    return form ? form->Handle() : 0;
}

}  // namespace

String HelpFileOfInstallation() {
    return runtime::Trim(Values().installFolder + u"\\Marlentine.HLP");
}

String CompiledHelpName() {
    constexpr std::size_t kExtension = 3;
    const String& name = Values().helpFilePath;
    if (name.size() < kExtension)
        throw runtime::ErrorAbout(runtime::kInvalidProcedureCall, u"the help file's name is '" + name + u"'");
    return name.substr(0, name.size() - kExtension) + u"chm";
}

void ShowHelpContents() {
    const String name = CompiledHelpName();
    runtime::CurrentPorts().help.OpenContents(MainWindow(), name);
}

void ShowHelpTopic(StringView /*file*/, std::int32_t /*topic*/, std::int16_t& wanted) {
    if (wanted == 0) return;
    const String name = CompiledHelpName();
    const NativeHandle window = MainWindow();
    // Set the flag before calling the viewer, because the viewer may fail with its window open. Set it again
    // afterwards, because an unload of the main form clears it and may happen while the viewer opens its window.
    Values().helpIsOpen = kTrue;
    runtime::CurrentPorts().help.OpenContents(window, name);
    Values().helpIsOpen = kTrue;
}

void CloseHelp(NativeHandle window) {
    if (Values().helpIsOpen == 0) return;
    runtime::FirstError error;
    error.Run([window] { runtime::CurrentPorts().help.CloseAll(window); });
    Values().helpIsOpen = 0;
    error.Rethrow();
}

}  // namespace services
