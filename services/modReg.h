// Manages the settings: working folders, product identity, install folder and window placement. Reads settings through
// the suite's reader. Publishes some settings as kernel strings, so that all modules use the same values. Call the
// functions only on the home thread.
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
/// Returns the value to use if the setting does not exist. A product folder contains the current result of
/// GetProductName.
String DefaultOf(const SuiteSetting& setting);

/// Reads the folders for job, library, system and secondary job. Then publishes the first two folders as kernel
/// strings, and the job folder also as "EED3JobDir". If the kernel rewrites a value, keeps the new value. Errors of the
/// kernel and the reader reach the caller.
void LoadDirectories();
/// Reads product name, maker, copyright holder, version, revision and range. Then publishes the first three values. If
/// the kernel rewrites a value, keeps the new value. Errors of the kernel and the reader reach the caller.
void LoadProductIdentity();

/// Returns the product's name that the kernel has now; "" if the kernel has no name. Errors of the kernel and the
/// reader reach the caller.
String GetProductName();
/// Returns the folder of the component's file. The result ends in a backslash only if it is a drive's root.
String GetInstallFolder();

/// Returns a per-user setting, or `defaultValue` if the setting does not exist.
String GetAppSetting(StringView appName, StringView section, StringView key, StringView defaultValue);
void SaveAppSetting(StringView appName, StringView section, StringView key, StringView value);

/// Converts `path` to upper case, makes it the current folder and then restores the former current folder. Sets
/// `result` to 0 on success, otherwise to 1. If a step fails, shows a message. Errors of the message reach the caller.
/// Accepts the bare drives A to Y without a check.
void CheckFolder(String& path, std::int32_t& result);

/// Writes the form's top, left, height and width to the per-user settings, as whole numbers of twips. Error 5 if a
/// setting cannot be written.
void SaveWindowPlacement(runtime::Form& form);

}  // namespace services
