// The reader that stands in for the suite's own: settings from MARLENTO.INI in the system folder, then from the
// user's registry settings; texts from K4TBackProcess.txt in the language folder.
#pragma once

#include <functional>

#include "kernel_api/Reader.h"
#include "kernel_api/dev/IniText.h"
#include "kernel_api/dev/TextFile.h"
#include "kernel_api/dev/WatchedFile.h"
#include "runtime/FilesPort.h"
#include "runtime/LocalePort.h"
#include "runtime/SettingsPort.h"

namespace kernel_api::dev {

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
    /// Path of the language's texts; empty while no language folder is known.
    String TextsPath();

    runtime::FilesPort& files_;
    runtime::SettingsPort& settings_;
    runtime::LocalePort& locale_;
    WatchedFile iniFile_{files_};
    IniText ini_;
    std::function<String()> languageFolder_;
    WatchedFile textsFile_{files_};
    TextFile texts_;
};

}  // namespace kernel_api::dev
