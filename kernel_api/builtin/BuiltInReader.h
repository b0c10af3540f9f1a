// The reader that replaces the suite's own. Settings come from MARLENTO.INI in the system folder, then from the user's
// registry settings. Texts come from K4TBackProcess.txt in the language folder.
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

/// The largest size of a language file that is read, in bytes. It is enough for about 300,000 texts. A larger file
/// would take hundreds of megabytes of a module's memory and several seconds.
constexpr std::uint64_t kMaxTextsBytes = 16u << 20;

/// The name of the language file in each language folder.
inline constexpr StringView kTextsFileName = u"K4TBackProcess.txt";

/// Path of the language file in `languageFolder`, which may end in a backslash.
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
    /// Also returns "" for an address less than 64 KB above or below 0, because no text can be there.
    String TextAt(TextPointer pointer) override;

    /// Sets the function that returns the language folder. If it is null or returns "", the kernel string
    /// "LANGUAGEPATH" is the language folder.
    void UseLanguageFolder(std::function<String()> folder) { languageFolder_ = std::move(folder); }

    /// The setting and its source. No INI file is read before the first NormaliseFolder.
    FoundSetting Find(StringView application, StringView key);

 private:
    /// Reads the INI file again if it has changed.
    void Refresh();
    /// Reads the language file again if it or the language folder has changed.
    void RefreshTexts();
    /// Empty if no language folder is known.
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
