// Compares a language file with the texts of the component, and writes a template for translators.
#pragma once

#include <functional>
#include <iosfwd>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "host/TextCatalogue.h"
#include "runtime/Geometry.h"
#include "runtime/LocalePort.h"

namespace tools {

/// The content of a language file.
struct LanguageFileText {
    std::string name;  ///< the file's name as findings show it, in UTF-8
    std::string bytes;
};

/// Returns the width of a caption in twips, without its access key mark.
using CaptionMeasure = std::function<runtime::Twips(runtime::StringView caption)>;

struct TextReportCounts {
    std::size_t missing = 0;   ///< identifiers without a translation
    std::size_t findings = 0;  ///< problems of the file
    bool operator==(const TextReportCounts&) const = default;
};

/// Writes one fact per line to `out`. The first lines show each text of the catalogue with its translation. The next
/// lines show each problem with the file's name and, except for a wrong encoding, the line number. The last line shows
/// how many identifiers are translated. Without a `file`, each text is shown as missing. `locale` decides which access
/// keys differ only in case, and converts published texts to the ANSI code page.
TextReportCounts WriteTextReport(std::ostream& out, std::span<const host::CatalogueText> catalogue,
                                 const std::optional<LanguageFileText>& file, runtime::LocalePort& locale,
                                 const CaptionMeasure& measure);

/// True if the bytes seem to be UTF-16. Such bytes begin with the byte order mark of UTF-16, or exactly one of their
/// first two bytes is NUL. A language file must be UTF-8.
bool IsUtf16(std::string_view bytes);

/// Writes a language file with the English texts. The comment above each text names the place where the component shows
/// the text.
void WriteTextTemplate(std::ostream& out, std::span<const host::CatalogueText> catalogue);

}  // namespace tools
