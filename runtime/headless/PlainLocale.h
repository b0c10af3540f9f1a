// A western system's language without the platform: code page 1252, and the letter case of LetterCase.h.
#pragma once

#include "runtime/LocalePort.h"

namespace runtime::headless {

class PlainLocale : public LocalePort {
 public:
    std::string ToAnsi(StringView text) override;
    String FromAnsi(std::string_view bytes) override;
    String UpperCase(StringView text) override;
    String LowerCase(StringView text) override;
};

}  // namespace runtime::headless
