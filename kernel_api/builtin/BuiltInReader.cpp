#include "kernel_api/builtin/BuiltInReader.h"

#include <new>
#include <optional>
#include <utility>

namespace kernel_api::builtin {
namespace {

constexpr StringView kRegistrySection = u"Settings";

}  // namespace

String TextsPathIn(StringView languageFolder) {
    String path(languageFolder);
    if (!path.ends_with(u'\\')) path += u'\\';
    return path.append(kTextsFileName);
}

BuiltInReader::BuiltInReader(runtime::FilesPort& files, runtime::SettingsPort& settings, runtime::LocalePort& locale)
    : files_(files), settings_(settings), locale_(locale), ini_(locale) {}

void BuiltInReader::NormaliseFolder(String& folder) {
    if (!folder.ends_with(u'\\')) folder += u'\\';
    iniFile_.SetPath(String(folder).append(kIniFileName));
}

String BuiltInReader::GetSetting(StringView application, StringView key, StringView defaultValue) {
    FoundSetting found = Find(application, key);
    return found.source == SettingSource::None ? String(defaultValue) : std::move(found.value);
}

String BuiltInReader::GetText(StringView defaultText, StringView textId) {
    RefreshTexts();
    return String(texts_.Find(textId).value_or(defaultText));
}

void BuiltInReader::RefreshTexts() {
    if (textsFile_.IsChecked()) return;
    if (String folder = LanguageFolder(); folder != textsFolder_) {
        textsFile_.SetPath(folder.empty() ? String() : TextsPathIn(folder));
        textsFolder_ = std::move(folder);
    }
    textsFile_.Refresh([this](const std::optional<std::string>& bytes) {
        texts_ = {};
        if (!bytes) return;
        try {
            texts_ = TextFile(*bytes);
        } catch (const std::bad_alloc&) {
            // If the texts do not fit into memory, the defaults are used.
        }
    });
}

String BuiltInReader::LanguageFolder() {
    String folder = languageFolder_ ? languageFolder_() : String();
    return folder.empty() ? TextAt(CurrentKernel().E_GetString(kLanguageFolderKey)) : folder;
}

String BuiltInReader::TextAt(TextPointer pointer) {
    if (!IsTextAddress(pointer)) return {};
    return locale_.FromAnsi(reinterpret_cast<const char*>(pointer));
}

FoundSetting BuiltInReader::Find(StringView application, StringView key) {
    Refresh();
    if (const String* const value = ini_.Find(application, key)) return {*value, SettingSource::IniFile};
    if (auto value = settings_.Get(application, kRegistrySection, key)) {
        return {std::move(*value), SettingSource::Registry};
    }
    return {};
}

void BuiltInReader::Refresh() {
    iniFile_.Refresh([this](const std::optional<std::string>& bytes) {
        ini_ = IniText(locale_);
        if (!bytes) return;
        try {
            ini_ = IniText(locale_, DecodeIni(*bytes, locale_));
        } catch (const std::bad_alloc&) {
            // If the file does not fit into memory, the reader still finds the settings in the registry.
        }
    });
}

}  // namespace kernel_api::builtin
