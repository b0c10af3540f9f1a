// The settings store: working folders, product identity, install folder and window placement. Settings are read through
// the suite's reader and published as kernel strings, so that every module sees the same ones.
#pragma once

#include <cstdint>
#include <span>

#include "runtime/Text.h"
#include "services/ProcessValues.h"

namespace runtime {
class Form;
}

namespace services {

using runtime::String;
using runtime::StringView;

/// The application whose settings are read.
inline constexpr StringView kSettingsApplication = u"Marlento";

/// A setting of the suite that this component reads.
struct SuiteSetting {
    StringView key;
    StringView meaning;            ///< in a few words, for people
    String ProcessValues::*value;  ///< where it is kept
    bool isProductFolder;          ///< the default is C:\, the product's name and `defaultText`
    StringView defaultText;
};

/// In the order in which they are read.
std::span<const SuiteSetting> FolderSettings();
std::span<const SuiteSetting> IdentitySettings();
/// What counts when the setting is absent, with the product's name as the kernel has it now.
String DefaultOf(const SuiteSetting& setting);

/// Reads the folders for job, library, system and secondary job, then publishes the first two. Each published value is
/// taken back from the kernel. The errors of kernel and reader pass.
void LoadDirectories();
/// Reads product name, maker, copyright holder, version, revision and range, then publishes the first three. Errors as
/// above.
void LoadProductIdentity();

/// The product's name as the kernel has it now; "" when it has none. The errors of kernel and reader pass.
String GetProductName();
/// The folder that holds the component's own file, without a final backslash unless it is a drive's root.
String GetInstallFolder();

/// A per-user setting of the runtime, or `defaultValue`.
String GetAppSetting(StringView appName, StringView section, StringView key, StringView defaultValue);
void SaveAppSetting(StringView appName, StringView section, StringView key, StringView value);

/// Upper-cases `path` in place, then sets `result` to 0 when the folder is usable, else to 1 after a message. The bare
/// drives A to Y are accepted unseen. The current folder stays what it was; a folder after which it cannot be restored
/// counts as not usable. The errors of the report pass; `result` is 1 then.
void CheckFolder(String& path, std::int32_t& result);

/// Writes the form's top, left, height and width to the per-user settings: whole numbers of twips. Error 5 when they
/// refuse it.
void SaveWindowPlacement(runtime::Form& form);

}  // namespace services
