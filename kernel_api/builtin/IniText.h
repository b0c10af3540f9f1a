// The suite's INI file as text: how its bytes are decoded, and its settings by section and key.
#pragma once

#include <unordered_map>

#include "runtime/LocalePort.h"

namespace kernel_api::builtin {

using runtime::String;
using runtime::StringView;

/// By its byte order mark UTF-8 or UTF-16 of either order; without one UTF-8 if it is that throughout, else the
/// system's ANSI code page. An odd last byte of UTF-16 is left out.
String DecodeIni(std::string_view bytes, runtime::LocalePort& locale);

/// Why the bytes cannot be read as they were meant, for the person who wrote them; "" when they can.
std::string_view IniProblem(std::string_view bytes);

/// "[section]" lines and "key = value" lines below them; ";" starts a comment line, and lines that are none of these
/// are skipped, as are keys above the first section. Names are found whatever their letter case, and the first of
/// several equal ones counts. Blanks and tabs around names and values do not belong to them, nor does one pair of
/// quotes ("…" or '…') around a value.
class IniText {
 public:
    /// Without settings. `locale` must outlive the object.
    explicit IniText(runtime::LocalePort& locale) : locale_(&locale) {}
    IniText(runtime::LocalePort& locale, StringView text);

    /// Null when there is no such setting.
    const String* Find(StringView section, StringView key) const;

 private:
    using Section = std::unordered_map<String, String>;

    void AddSetting(Section& section, StringView line);

    runtime::LocalePort* locale_;
    std::unordered_map<String, Section> sections_;  ///< names in lower case
};

}  // namespace kernel_api::builtin
