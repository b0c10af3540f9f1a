#include "services/modReg.h"

#include <optional>

#include "kernel_api/Kernel.h"
#include "kernel_api/Reader.h"
#include "runtime/Error.h"
#include "runtime/Form.h"
#include "runtime/Numbers.h"
#include "runtime/Operation.h"
#include "runtime/Ports.h"
#include "services/LocalTexts.h"
#include "services/MessageTexts.h"
#include "services/ProcessValues.h"

namespace services {
namespace {

using runtime::CurrentPorts;

constexpr StringView kPlacementApplication = u"Pelorix";
constexpr std::int16_t kScaleTwips = 1;
constexpr std::int32_t kUsable = 0;
constexpr std::int32_t kNotUsable = 1;

constexpr SuiteSetting kFolderSettings[] = {
    {u"JobDir", u"job folder", &ProcessValues::jobFolder, true, u"\\JOB"},
    {u"LibDir", u"library folder", &ProcessValues::libraryFolder, true, u"\\LIB"},
    {u"SysDir", u"system folder setting", &ProcessValues::systemFolder, true, u"\\SYS"},
    {u"EED3JobDir", u"secondary job folder", &ProcessValues::secondaryJobFolder, false, u"C:\\CADJOB"},
};

constexpr SuiteSetting kIdentitySettings[] = {
    {u"SysName", u"product name", &ProcessValues::productName, false, u"Orvane"},
    {u"Maker", u"maker name", &ProcessValues::makerName, false, u"Harnwell"},
    {u"Copyright", u"copyright holder", &ProcessValues::copyrightHolder, false, u"Daventa"},
    {u"Ver", u"version", &ProcessValues::version, false, u"?"},
    {u"Rev", u"revision", &ProcessValues::revision, false, u"?"},
    {u"Range", u"product range", &ProcessValues::productRange, false, u"Electronic design engineering system"},
};

void ReadSettings(std::span<const SuiteSetting> settings) {
    for (const SuiteSetting& setting : settings) {
        const String defaultValue = DefaultOf(setting);
        Values().*setting.value =
            kernel_api::CurrentReader().GetSetting(kSettingsApplication, setting.key, defaultValue);
    }
}

void Publish(StringView key, String& value) {
    kernel_api::CurrentKernel().E_SetString(key, value);
}

bool IsBareDrive(StringView path) {
    const bool hasForm = path.size() == 2 || (path.size() == 3 && path[2] == u'\\');
    // Drive Z is deliberately left out. It is checked like a folder.
    return hasForm && path[1] == u':' && path[0] >= u'A' && path[0] <= u'Y';
}

/// Makes `path` the current folder, then restores `before`. Returns the description of the first error.
std::optional<String> FailureOfVisit(const String& path, const String& before) {
    runtime::FilesPort& files = CurrentPorts().files;
    try {
        files.ChangeFolder(path);
        files.ChangeFolder(before);
        return std::nullopt;
    } catch (const runtime::Error& error) {
        return error.Description();
    }
}

String UnusableFolderPrompt(const String& path) {
    const runtime::Operation operation;
    const String before = GetLocalText(kFolderLead);
    return before + path + GetLocalText(kFolderNotAvailable);
}

void ReportUnusableFolder(const String& path, const String& failure) {
    ShowMessage(UnusableFolderPrompt(path), kExclamation | kSystemModal, failure);
}

}  // namespace

std::span<const SuiteSetting> FolderSettings() {
    return kFolderSettings;
}

std::span<const SuiteSetting> IdentitySettings() {
    return kIdentitySettings;
}

String DefaultOf(const SuiteSetting& setting) {
    if (!setting.isProductFolder) return String(setting.defaultText);
    return u"C:\\" + GetProductName() + String(setting.defaultText);
}

void LoadDirectories() {
    const runtime::Operation operation;
    ProcessValues& values = Values();
    ReadSettings(kFolderSettings);
    Publish(u"JobDir", values.jobFolder);
    Publish(u"LibDir", values.libraryFolder);
    // Also publish the job folder under this key, so that modules that read the key work in the same folder as all
    // others.
    Publish(u"EED3JobDir", values.jobFolder);
}

void LoadProductIdentity() {
    const runtime::Operation operation;
    ProcessValues& values = Values();
    ReadSettings(kIdentitySettings);
    Publish(u"PRODUCT_NAME", values.productName);
    Publish(u"MAKER_NAME", values.makerName);
    Publish(u"COPYRIGHT_NAME", values.copyrightHolder);
}

String GetProductName() {
    return kernel_api::CurrentReader().TextAt(kernel_api::CurrentKernel().E_GetString(u"PRODUCT_NAME"));
}

String GetInstallFolder() {
    return CurrentPorts().process.ComponentFolder();
}

String GetAppSetting(StringView appName, StringView section, StringView key, StringView defaultValue) {
    return CurrentPorts().settings.Get(appName, section, key).value_or(String(defaultValue));
}

void SaveAppSetting(StringView appName, StringView section, StringView key, StringView value) {
    CurrentPorts().settings.Save(appName, section, key, value);
}

void CheckFolder(String& path, std::int32_t& result) {
    const String before = CurrentPorts().files.CurrentFolder();
    path = CurrentPorts().locale.UpperCase(path);
    if (IsBareDrive(path)) {
        result = kUsable;
        return;
    }
    const std::optional<String> failure = FailureOfVisit(path, before);
    result = failure ? kNotUsable : kUsable;
    if (failure) ReportUnusableFolder(path, *failure);
}

void SaveWindowPlacement(runtime::Form& form) {
    const std::int16_t scaleMode = form.ScaleMode();
    form.SetScaleMode(kScaleTwips);
    const runtime::Operation operation;
    const auto save = [&form](StringView suffix, runtime::Twips value) {
        // Write a whole number. A fraction would contain a decimal mark, which depends on the regional
        // settings.
        SaveAppSetting(kPlacementApplication, kOwnModuleName, form.Name() + String(suffix),
                       runtime::Trim(runtime::Str(runtime::ToInt32(value))));
    };
    save(u"_TOP", form.Top());
    save(u"_LEFT", form.Left());
    save(u"_HEIGHT", form.Height());
    save(u"_WIDTH", form.Width());
    form.SetScaleMode(scaleMode);
}

}  // namespace services
