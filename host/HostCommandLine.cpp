#include "host/HostCommandLine.h"

#include <algorithm>
#include <cstdint>
#include <utility>
#include <vector>

#include "runtime/Ports.h"
#include "services/modReg.h"

namespace host {
namespace {

using runtime::String;
using runtime::StringView;

constexpr StringView kSystemFolderPrefix = u"/sys:";
constexpr std::size_t kMaxPieces = 2;
constexpr char16_t kQuote = u'"';

/// Splits `commandLine` at double quotes. Trims the parts and omits empty parts.
std::vector<String> SplitAtQuotes(StringView commandLine) {
    std::vector<String> pieces;
    for (std::size_t start = 0; start <= commandLine.size();) {
        const std::size_t end = std::min(commandLine.find(kQuote, start), commandLine.size());
        String piece = runtime::Trim(commandLine.substr(start, end - start));
        if (!piece.empty()) pieces.push_back(std::move(piece));
        start = end + 1;
    }
    return pieces;
}

bool IsUsable(String folder) {
    std::int32_t result = 0;
    services::CheckFolder(folder, result);
    return result == 0;
}

/// Uses `piece` as a search pattern. True if `piece` ends with the name of the first match. Ignores letter case.
bool NamesAFile(const String& piece) {
    runtime::LocalePort& locale = runtime::CurrentPorts().locale;
    const String found = runtime::CurrentPorts().files.FirstMatch(piece);
    return !found.empty() && locale.LowerCase(piece).ends_with(locale.LowerCase(found));
}

void Take(const String& piece, HostCommandLine& given) {
    const StringView start = StringView(piece).substr(0, kSystemFolderPrefix.size());
    if (runtime::CurrentPorts().locale.LowerCase(start) == kSystemFolderPrefix) {
        String folder = runtime::Trim(StringView(piece).substr(kSystemFolderPrefix.size()));
        if (IsUsable(folder)) given.systemFolder = std::move(folder);
    } else if (NamesAFile(piece)) {
        given.startFile = piece;
    }
}

}  // namespace

HostCommandLine ReadHostCommandLine() {
    HostCommandLine given{services::GetInstallFolder() + u"\\sys", {}};
    const std::vector<String> pieces = SplitAtQuotes(runtime::CurrentPorts().process.CommandLine());
    if (pieces.size() > kMaxPieces) return given;
    for (const String& piece : pieces) Take(piece, given);
    return given;
}

}  // namespace host
