// The component's process-wide values: shared by every instance and form in the process, as its clients see them. The
// composition owns them (host/Process.h). For the home thread.
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

/// Format patterns of coordinates and values in the classic BASIC notation. Kept for callers; nothing in the component
/// formats with them.
struct NumberFormats {
    String coordinate;
    String value;
    String oneDecimal;
    String fixedCoordinate;
    String fixedValue;
};

/// The forms that a process has one of, each made when it is first needed.
struct SharedForms {
    std::unique_ptr<runtime::Form> main;
    std::unique_ptr<runtime::Form> messageBox;
    std::unique_ptr<runtime::Form> query;
};

/// The suite's message box: given prompt, flags and title, it returns the code of the pressed button.
using SuiteMessageBox = std::function<std::int32_t(StringView prompt, std::int32_t flags, StringView title)>;

/// The suite's query dialog; arguments and answer are those of dialogs::AskQuery.
using SuiteQuery =
    std::function<String(const String& title, const String& prompt, std::vector<String>& values, std::int32_t kind,
                         std::int32_t& index, bool showButton, const String& buttonCaption)>;

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
    String moduleName;
    String moduleCaption;
    String helpFilePath;  ///< of the old help format; what is opened bears the extension "chm"

    /// Help has been opened in a way that the main form's unload ends: -1, else 0.
    std::int16_t helpIsOpen = 0;

    UiFont uiFont;

    String serverPath;
    NumberFormats numberFormats;

    // What the commands and the list of modules said; see routing/CommandInterpreter.h and routing/ModuleList.h.
    String currentDesignName;
    String languagePath;
    std::uint32_t interModuleMessage = 0;
    std::vector<String> moduleNames;
    std::int32_t moduleCount = 0;
    std::int32_t ownModuleIndex = 0;

    // The result of the last split; see routing/FieldSplitter.h.
    std::vector<String> fieldTexts;
    std::vector<double> fieldValues;

    // The suite's dialogs, which are in a layer above. The composition chooses them.

    /// Shows what ShowMessage sends to the suite's box.
    SuiteMessageBox suiteMessageBox;
    SuiteQuery suiteQuery;

    SharedForms forms;
};

/// The values of this process; all empty at its start. Error 91 before the process was composed.
ProcessValues& Values();
/// Chooses them; null takes the choice back. The caller keeps ownership.
void UseValues(ProcessValues* values);

/// Puts the suite's formats into the process's values.
void InitNumberFormats();

}  // namespace services
