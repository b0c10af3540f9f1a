// The system's and the user's language: locales, character set, code page and letter case.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "runtime/Text.h"

namespace runtime {

class LocalePort {
 public:
    virtual ~LocalePort() = default;

    /// Bytes in the system's ANSI code page; a character that it lacks becomes its default character ('?'). Error 7 for
    /// texts that are too long to convert.
    virtual std::string ToAnsi(StringView text) = 0;
    virtual String FromAnsi(std::string_view bytes) = 0;

    /// The locale that programs of one code page run in, as the platform's identifier.
    virtual std::int32_t SystemDefaultLcid() = 0;
    /// The locale that the user chose for dates, numbers and the like.
    virtual std::int32_t UserDefaultLcid() = 0;
    /// The Windows character set that the texts of `lcid` are written in; none when the system does not know it.
    virtual std::optional<std::int16_t> CharsetOf(std::int32_t lcid) = 0;

    virtual String UpperCase(StringView text) = 0;
    virtual String LowerCase(StringView text) = 0;
};

}  // namespace runtime
