// The settings store: working folders, product identity, install folder and window placement. Settings are read through
// the suite's reader and published as kernel strings, so that all modules use the same values. Home thread only.
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
    StringView meaning;            ///< a short description for users
    String ProcessValues::*value;  ///< where the value is stored
    bool isProductFolder;          ///< the default is C:\, the product's name and `defaultText`
    StringView defaultText;
};

// The settings, in the order in which they are read.
std::span<const SuiteSetting> FolderSettings();
std::span<const SuiteSetting> IdentitySettings();
/// The value of an absent setting. A product folder contains the name that GetProductName returns now.
String DefaultOf(const SuiteSetting& setting);

/// Reads the folders for job, library, system and secondary job, then publishes the first two; the job folder is also
/// published as "EED3JobDir". If the kernel rewrites a value, the new value is kept. Errors of the kernel and the
/// reader reach the caller.
void LoadDirectories();
/// Reads product name, maker, copyright holder, version, revision and range, then publishes the first three, as above.
void LoadProductIdentity();

/// The product's name that the kernel has now; "" if it has none. Errors of the kernel and the reader reach the caller.
String GetProductName();
/// The folder of the component's file. Only a drive's root ends in a backslash.
String GetInstallFolder();

/// A per-user setting, or `defaultValue` if there is none.
String GetAppSetting(StringView appName, StringView section, StringView key, StringView defaultValue);
void SaveAppSetting(StringView appName, StringView section, StringView key, StringView value);

/// Converts `path` to upper case, makes it the current folder and then restores the former current folder. Sets
/// `result` to 0 if both succeed, else to 1. In the second case a message is shown, whose errors reach the caller. The
/// bare drives A to Y are accepted without a check.
void CheckFolder(String& path, std::int32_t& result);

/// Writes the form's top, left, height and width to the per-user settings, as whole numbers of twips. Error 5 if a
/// setting cannot be written.
void SaveWindowPlacement(runtime::Form& form);

}  // namespace services
