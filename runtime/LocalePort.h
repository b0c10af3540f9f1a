// The system's language: code page and letter case.
#pragma once

#include <string>

#include "runtime/Text.h"

namespace runtime {

class LocalePort {
 public:
    virtual ~LocalePort() = default;

    /// Bytes in the system's ANSI code page; a character that it lacks becomes its default character ('?').
    virtual std::string ToAnsi(StringView text) = 0;
    virtual String FromAnsi(std::string_view bytes) = 0;

    virtual String UpperCase(StringView text) = 0;
    virtual String LowerCase(StringView text) = 0;
};

}  // namespace runtime
