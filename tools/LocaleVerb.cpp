// `backproc locale`: the font that the component gives its forms, and why.
#include <cstdio>
#include <ostream>

#include "host/Composition.h"
#include "runtime/Ports.h"
#include "runtime/win32/WindowsHeaders.h"
#include "services/ProcessValues.h"
#include "tools/Display.h"
#include "tools/UiFont.h"
#include "tools/Usage.h"
#include "tools/Verbs.h"

namespace tools {

namespace {

constexpr std::string_view kHelp =
    R"(Usage: backproc locale [--lcid N]

Shows the font that the component gives its forms: face, size in points and Windows character set, and the rule that
chose it. The system's locale decides the language; under a language that has no font of its own, the user's locale
decides the character set. Where the face is empty or the size 0, the forms get that of a new font: MS Sans Serif, 8.25.

  --lcid N  the choice as it were on a system of the locale N, 0 to 0xFFFFFFFF: decimal, or hexadecimal after 0x

Exit code: 0 done, 1 failed, 2 bad usage.

Example:
  backproc locale --lcid 0x0411
)";

std::string_view NameOf(services::FontRule rule) {
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

std::string Hexadecimal(std::int32_t lcid) {
    char text[16];
    std::snprintf(text, sizeof text, "0x%04X", static_cast<unsigned>(lcid));
    return text;
}

int RunLocale(const Arguments& arguments, Console& console) {
    std::optional<std::int32_t> lcid;
    if (!arguments.empty()) {
        if (arguments[0] != u"--lcid") throw UnknownOption(arguments[0]);
        lcid = ReadNumber(ValueOf(arguments, 0), "--lcid");
        AtMost(2, arguments);
    }
    host::EnsureComposed(GetModuleHandleW(nullptr));
    const services::FontRule rule = ChooseFont(lcid);
    runtime::LocalePort& locale = runtime::CurrentPorts().locale;
    const services::UiFont& font = services::processValues.uiFont;
    console.out << "system locale=" << Hexadecimal(lcid.value_or(locale.SystemDefaultLcid())) << '\n'
                << "user locale=" << Hexadecimal(locale.UserDefaultLcid()) << '\n'
                << "face=[" << Display(font.name) << "]\n"
                << "size=" << font.size << '\n'
                << "character set=" << font.characterSet << '\n'
                << "rule=" << NameOf(rule) << '\n';
    return kSuccess;
}

}  // namespace

const Verb kLocaleVerb = {"locale", "Shows the font of the forms, and which rule chose it", kHelp, RunLocale};

}  // namespace tools
