// The language of the running Windows.
#pragma once

#include "runtime/LocalePort.h"

namespace runtime::win32 {

class Win32Locale : public LocalePort {
 public:
    /// Converts as the system does: a character that the code page lacks becomes a similar character, or else the code
    /// page's default character.
    std::string ToAnsi(StringView text) override;
    String FromAnsi(std::string_view bytes) override;

    std::int32_t SystemDefaultLcid() override;
    std::int32_t UserDefaultLcid() override;
    std::optional<std::int16_t> CharsetOf(std::int32_t lcid) override;

    // Letter case does not depend on the language, as in the file system. A Turkish system would otherwise change "sis"
    // into a folder name that does not exist. A text keeps its length.
    String UpperCase(StringView text) override;
    String LowerCase(StringView text) override;
};

}  // namespace runtime::win32
