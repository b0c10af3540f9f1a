// Prints the font that the component gives its forms, and the rule that chose the font. With an argument, it uses the
// locale with that number. Without an argument, it uses the system's locale.
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <optional>
#include <string>

#include "host/WindowsComposition.h"
#include "runtime/Ports.h"
#include "runtime/Text.h"
#include "runtime/win32/WindowsHeaders.h"
#include "services/ProcessValues.h"
#include "tools/UiFont.h"

namespace {

const char* NameOf(services::FontRule rule) {
    using services::FontRule;
    switch (rule) {
        case FontRule::kTraditionalChinese:
            return "Traditional Chinese";
        case FontRule::kSimplifiedChinese:
            return "Simplified Chinese";
        case FontRule::kOtherChinese:
            return "other Chinese";
        case FontRule::kJapanese:
            return "Japanese";
        case FontRule::kKorean:
            return "Korean";
        case FontRule::kOtherKorean:
            return "other Korean";
        case FontRule::kInstalledFace:
            return "first installed face";
        case FontRule::kIconTitleFont:
            return "font of icon titles";
        case FontRule::kStockFont:
            return "stock font";
    }
    return "";
}

}  // namespace

int main(int count, char** arguments) {
    host::EnsureComposed(GetModuleHandleW(nullptr));
    std::optional<std::int32_t> lcid;
    if (count > 1) lcid = static_cast<std::int32_t>(std::strtol(arguments[1], nullptr, 0));
    const services::FontRule rule = tools::ChooseFont(lcid);
    runtime::LocalePort& locale = runtime::CurrentPorts().locale;
    const services::UiFont& font = services::Values().uiFont;
    std::printf("system locale=0x%04X\n", static_cast<unsigned>(lcid.value_or(locale.SystemDefaultLcid())));
    std::printf("user locale=0x%04X\n", static_cast<unsigned>(locale.UserDefaultLcid()));
    std::printf("face=[%s]\nsize=%g\n", runtime::ToUtf8(font.name).c_str(), static_cast<double>(font.size));
    std::printf("character set=%d\nrule=%s\n", static_cast<int>(font.characterSet), NameOf(rule));
    return 0;
}
