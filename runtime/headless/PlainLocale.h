// Implements the language settings of a western system without Windows. Uses code page 1252 and the letter case of
// LetterCase.h. A test may set other locales and character sets.
#pragma once

#include <map>

#include "runtime/LocalePort.h"

namespace runtime::headless {

class PlainLocale : public LocalePort {
 public:
    std::string ToAnsi(StringView text) override;
    String FromAnsi(std::string_view bytes) override;
    std::int32_t SystemDefaultLcid() override { return systemLcid; }
    std::int32_t UserDefaultLcid() override { return userLcid; }
    std::optional<std::int16_t> CharsetOf(std::int32_t lcid) override;
    String UpperCase(StringView text) override;
    String LowerCase(StringView text) override;

    static constexpr std::int32_t kAmericanEnglish = 0x0409;

    std::int32_t systemLcid = kAmericanEnglish;
    std::int32_t userLcid = kAmericanEnglish;
    /// The character sets of the known locales.
    std::map<std::int32_t, std::int16_t> charsets{{kAmericanEnglish, std::int16_t{0}}};
};

}  // namespace runtime::headless
