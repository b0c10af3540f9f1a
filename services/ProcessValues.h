// The component's process-wide values: shared by every instance and form in the process, as its clients see them.
#pragma once

#include <cstdint>

#include "runtime/NeverDestroyed.h"
#include "runtime/Text.h"

namespace runtime {
class Form;
}

namespace services {

using runtime::String;
using runtime::StringView;

/// This component as a module of the suite: its entry in the list of modules, the kernel key of its state, an addressee
/// of commands, the section of its settings.
inline constexpr StringView kOwnModuleName = u"K4TBACKPROCESS";

/// The font for every control; empty until it is chosen.
struct UiFont {
    String name;
    std::int16_t size = 0;  ///< in points
    std::int16_t characterSet = 0;
    bool operator==(const UiFont&) const = default;
};

struct ProcessValues {
    // Where things are; full paths.
    String installFolder;  ///< holds the component's own file
    String jobFolder;
    String libraryFolder;
    String systemFolder;  ///< the setting "SysDir", not the folder of the suite's INI file
    String secondaryJobFolder;

    // What the product is called.
    String productName;
    String makerName;
    String copyrightHolder;
    String version;
    String revision;
    String productRange;

    // Set when the main form loads.
    runtime::Form* mainForm = nullptr;
    String moduleName;
    String moduleCaption;
    String helpFilePath;  ///< of the old help format; what is opened bears the extension "chm"

    /// Help has been opened in a way that the main form's unload ends: -1, else 0.
    std::int16_t helpIsOpen = 0;

    UiFont uiFont;

    String serverPath;
};

/// The values of this process; all empty at its start.
inline ProcessValues& processValues = runtime::NeverDestroyed<ProcessValues>();

}  // namespace services
