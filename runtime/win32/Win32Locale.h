// Implements the language settings with the functions of Windows.
#pragma once

#include "runtime/LocalePort.h"

namespace runtime::win32 {

class Win32Locale : public LocalePort {
 public:
    /// If the code page lacks a character, a similar character replaces it. If there is no similar character, the code
    /// page's default character replaces it.
    std::string ToAnsi(StringView text) override;
    String FromAnsi(std::string_view bytes) override;

    std::int32_t SystemDefaultLcid() override;
    std::int32_t UserDefaultLcid() override;
    std::optional<std::int16_t> CharsetOf(std::int32_t lcid) override;

    // Upper and lower case follow the rule of the file system, which ignores the language. With Turkish rules, "sis" in
    // upper case has a dotted capital I, and a folder of that name does not exist. A text keeps its length.
    String UpperCase(StringView text) override;
    String LowerCase(StringView text) override;
};

}  // namespace runtime::win32
