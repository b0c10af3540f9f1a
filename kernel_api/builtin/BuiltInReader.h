// Replaces the suite's reader. Settings come from MARLENTO.INI in the system folder, then from the user's registry
// settings. Texts come from K4TBackProcess.txt in the language folder.
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

/// The maximum size of a language file in bytes. It is enough for about 300,000 texts. The reader ignores a larger
/// file, because reading it would take hundreds of megabytes of a module's memory and several seconds.
constexpr std::uint64_t kMaxTextsBytes = 16u << 20;

/// The name of the language file in each language folder.
inline constexpr StringView kTextsFileName = u"K4TBackProcess.txt";

/// Returns the path of the language file in `languageFolder`. The folder may end in a backslash.
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
    /// Returns "" if the address is less than 64 KB above or below 0, because no text can be there.
    String TextAt(TextPointer pointer) override;

    /// Sets the function that returns the language folder. If the function is null or returns "", the kernel string
    /// "LANGUAGEPATH" is the language folder.
    void UseLanguageFolder(std::function<String()> folder) { languageFolder_ = std::move(folder); }

    /// Returns the setting and its source. Reads no INI file before the first NormaliseFolder.
    FoundSetting Find(StringView application, StringView key);

 private:
    /// Reads the INI file again if it has changed.
    void Refresh();
    /// Reads the language file again if the file or the language folder has changed. Checks both once within an
    /// operation.
    void RefreshTexts();
    /// Returns the language folder; empty if no folder is known.
    String LanguageFolder();

    runtime::FilesPort& files_;
    runtime::SettingsPort& settings_;
    runtime::LocalePort& locale_;
    WatchedFile iniFile_{files_};
    IniText ini_;
    std::function<String()> languageFolder_;
    String textsFolder_;  ///< the language folder of `textsFile_`
    WatchedFile textsFile_{files_, kMaxTextsBytes};
    TextFile texts_;
};

}  // namespace kernel_api::builtin
