// The reader that stands in for the suite's own: settings from MARLENTO.INI in the system folder, then from the
// user's registry settings; texts from K4TBackProcess.txt in the language folder.
#pragma once

#include <cstdint>
#include <functional>

#include "kernel_api/Reader.h"
#include "kernel_api/builtin/IniText.h"
#include "kernel_api/builtin/TextFile.h"
#include "kernel_api/builtin/WatchedFile.h"
#include "runtime/FilesPort.h"
#include "runtime/LocalePort.h"
#include "runtime/SettingsPort.h"

namespace kernel_api::builtin {

/// More than this is no language file: it would take hundreds of megabytes of a module's memory and seconds of its
/// time. It holds about 300,000 texts of ordinary length.
constexpr std::uint64_t kMaxTextsBytes = 16u << 20;

/// Path of the texts in a language folder, which may end in a backslash.
String TextsPathIn(StringView languageFolder);

enum class SettingSource { None, IniFile, Registry };

struct FoundSetting {
    String value;
    SettingSource source = SettingSource::None;
};

class BuiltInReader : public Reader {
 public:
    /// The ports must outlive the reader.
    BuiltInReader(runtime::FilesPort& files, runtime::SettingsPort& settings, runtime::LocalePort& locale);

    void NormaliseFolder(String& folder) override;
    String GetSetting(StringView application, StringView key, StringView defaultValue) override;
    String GetText(StringView defaultText, StringView textId) override;
    /// Also "" for an address so near to 0, from either side, that no text can be there.
    String TextAt(TextPointer pointer) override;

    /// Where the folder of the language's texts comes from; while it is empty, the kernel string "LANGUAGEPATH" counts.
    void UseLanguageFolder(std::function<String()> folder) { languageFolder_ = std::move(folder); }

    /// The setting and where it was found. Until a folder is normalised there is no INI file.
    FoundSetting Find(StringView application, StringView key);

 private:
    /// Reads the INI file again if it is no longer the one that was read.
    void Refresh();
    /// Makes the texts those of the current language folder as it is now.
    void RefreshTexts();
    /// Empty while no language folder is known.
    String LanguageFolder();

    runtime::FilesPort& files_;
    runtime::SettingsPort& settings_;
    runtime::LocalePort& locale_;
    WatchedFile iniFile_{files_};
    IniText ini_;
    std::function<String()> languageFolder_;
    String textsFolder_;  ///< the folder whose file is watched
    WatchedFile textsFile_{files_, kMaxTextsBytes};
    TextFile texts_;
};

}  // namespace kernel_api::builtin
