// The language of the running Windows.
#pragma once

#include "runtime/LocalePort.h"

namespace runtime::win32 {

class Win32Locale : public LocalePort {
 public:
    /// As the system converts for every program: a character that the code page lacks becomes the nearest one that
    /// the system knows for it, or else the code page's default character.
    std::string ToAnsi(StringView text) override;
    String FromAnsi(std::string_view bytes) override;

    std::int32_t SystemDefaultLcid() override;
    std::int32_t UserDefaultLcid() override;
    std::optional<std::int16_t> CharsetOf(std::int32_t lcid) override;

    // Case as the file system has it, not by a language's rules: a Turkish system would else turn "sis" into a name
    // that no folder has. A text keeps its length.
    String UpperCase(StringView text) override;
    String LowerCase(StringView text) override;
};

}  // namespace runtime::win32
