// All instances and forms in the process share these values. host::Composition owns the values. Use them only on the
// home thread.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <vector>

#include "runtime/Form.h"
#include "runtime/Text.h"

namespace services {

using runtime::String;
using runtime::StringView;

/// The name of this component as a module of the suite. It is used in the list of modules, as the kernel key of the
/// module's state, as the addressee of commands and as the section of the component's settings.
inline constexpr StringView kOwnModuleName = u"K4TBACKPROCESS";

/// The font for every control. Empty until a font is chosen.
struct UiFont {
    String name;
    std::int16_t size = 0;  ///< size in points
    std::int16_t characterSet = 0;
    bool operator==(const UiFont&) const = default;
};

/// Format patterns of coordinates and values in the classic BASIC notation. The component stores the patterns for its
/// callers and does not use them itself.
struct NumberFormats {
    String coordinate;
    String value;
    String oneDecimal;
    String fixedCoordinate;
    String fixedValue;
};

/// The forms that exist once in a process. Each is created when it is first needed.
struct SharedForms {
    std::unique_ptr<runtime::Form> main;
    std::unique_ptr<runtime::Form> messageBox;
    std::unique_ptr<runtime::Form> query;
};

/// Shows the suite's message box and returns the code of the pressed button.
using SuiteMessageBox = std::function<std::int32_t(StringView prompt, std::int32_t flags, StringView title)>;

/// Shows the suite's query dialog. Has the same parameters and result as dialogs::AskQuery.
using SuiteQuery =
    std::function<String(const String& title, const String& prompt, std::vector<String>& values, std::int32_t kind,
                         std::int32_t& index, bool showButton, const String& buttonCaption)>;

struct ProcessValues {
    // Full paths of folders.
    String installFolder;  ///< contains the component's own file
    String jobFolder;
    String libraryFolder;
    String systemFolder;  ///< the setting "SysDir", not the folder of the suite's INI file
    String secondaryJobFolder;

    // The product's identity.
    String productName;
    String makerName;
    String copyrightHolder;
    String version;
    String revision;
    String productRange;

    // Set when the main form loads.
    String moduleName;
    String moduleCaption;
    String helpFilePath;  ///< with the extension "HLP"; the opened file has the extension "chm"

    /// -1 if the main form's unload must close help, otherwise 0.
    std::int16_t helpIsOpen = 0;

    UiFont uiFont;

    String serverPath;
    NumberFormats numberFormats;

    // Set by commands and by the list of modules; see routing/CommandInterpreter.h and routing/ModuleList.h.
    String currentDesignName;
    String languagePath;
    std::uint32_t interModuleMessage = 0;
    std::vector<String> moduleNames;
    std::int32_t moduleCount = 0;
    std::int32_t ownModuleIndex = 0;

    // The result of the last split; see routing/FieldSplitter.h.
    std::vector<String> fieldTexts;
    std::vector<double> fieldValues;

    // The suite's dialogs belong to a higher layer. The composition sets these functions.

    /// Shows the messages that ShowMessage passes to the suite's box.
    SuiteMessageBox suiteMessageBox;
    SuiteQuery suiteQuery;

    SharedForms forms;
};

/// Returns the values of this process. They are initially empty. Error 91 if the process is not composed.
ProcessValues& Values();
/// Makes `values` the values of this process. Null removes the values. The caller keeps ownership.
void UseValues(ProcessValues* values);

/// Stores the suite's format patterns in the process's values.
void InitNumberFormats();

}  // namespace services
