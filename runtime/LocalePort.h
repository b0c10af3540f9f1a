// The interface of the language settings of the system and the user: locales, character set, code page and letter case.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "runtime/Text.h"

namespace runtime {

class LocalePort {
 public:
    virtual ~LocalePort() = default;

    /// Converts to the system's ANSI code page. If the code page lacks a character, a similar character or the code
    /// page's default character ('?') replaces it. Error 7 for a text that is too long to convert.
    virtual std::string ToAnsi(StringView text) = 0;
    virtual String FromAnsi(std::string_view bytes) = 0;

    /// Returns the locale for programs without Unicode support, as a Windows locale identifier.
    virtual std::int32_t SystemDefaultLcid() = 0;
    /// Returns the locale that the user chose for formats such as dates and numbers.
    virtual std::int32_t UserDefaultLcid() = 0;
    /// Returns the Windows character set for texts of the locale `lcid`; no value if the system does not know the
    /// locale.
    virtual std::optional<std::int16_t> CharsetOf(std::int32_t lcid) = 0;

    virtual String UpperCase(StringView text) = 0;
    virtual String LowerCase(StringView text) = 0;
};

}  // namespace runtime
