// Decodes the suite's INI file and finds its settings by section and key.
#pragma once

#include <unordered_map>

#include "runtime/LocalePort.h"

namespace kernel_api::builtin {

using runtime::String;
using runtime::StringView;

/// Decodes the bytes of an INI file. A byte order mark selects UTF-8 or UTF-16 of either byte order. Without a byte
/// order mark, the encoding is UTF-8 if all bytes are valid UTF-8, otherwise the system's ANSI code page. Ignores an
/// odd last byte of UTF-16.
String DecodeIni(std::string_view bytes, runtime::LocalePort& locale);

/// Describes an encoding error to the author of the file; "" if there is no error.
std::string_view IniProblem(std::string_view bytes);

/// The settings of an INI file.
/// - A section starts with a "[section]" line. Its settings are "key = value" lines.
/// - A line that starts with ";" is a comment. Other lines, and settings above the first section, are skipped.
/// - The letter case of sections and keys is ignored. If a section has the same key twice, the first value is used.
/// - Blanks and tabs around names and values are removed. Then one pair of quotes ("…" or '…') around a value is
///   removed.
class IniText {
 public:
    /// Makes an object without settings. `locale` must outlive the object.
    explicit IniText(runtime::LocalePort& locale) : locale_(&locale) {}
    IniText(runtime::LocalePort& locale, StringView text);

    /// Returns the setting; null if there is no setting with this key.
    const String* Find(StringView section, StringView key) const;

 private:
    using Section = std::unordered_map<String, String>;

    void AddSetting(Section& section, StringView line);

    runtime::LocalePort* locale_;
    std::unordered_map<String, Section> sections_;  ///< names in lower case
};

}  // namespace kernel_api::builtin
