// Compares a language file with the texts that the component asks for, and writes the file that a
// translator starts from.
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

/// A language file.
struct LanguageFileText {
    std::string name;  ///< as the findings name it, in UTF-8
    std::string bytes;
};

/// How wide a caption is, in twips, without the marks of access keys.
using CaptionMeasure = std::function<runtime::Twips(runtime::StringView caption)>;

struct TextReportCounts {
    std::size_t missing = 0;   ///< identifiers that have no translation
    std::size_t findings = 0;  ///< what is wrong with the file
    bool operator==(const TextReportCounts&) const = default;
};

/// Writes one fact a line to `out`: each text of the catalogue with its translation, then what is wrong with the file,
/// with its name and line, then the count. Without a `file` the texts are English. Letter case is the locale's.
TextReportCounts WriteTextReport(std::ostream& out, std::span<const host::CatalogueText> catalogue,
                                 const std::optional<LanguageFileText>& file, runtime::LocalePort& locale,
                                 const CaptionMeasure& measure);

/// The bytes are UTF-16, by their byte order mark or by the NULs of their first characters. Language files are UTF-8.
bool IsUtf16(std::string_view bytes);

/// Writes a language file with the English texts, each below a comment with the place where it is shown.
void WriteTextTemplate(std::ostream& out, std::span<const host::CatalogueText> catalogue);

}  // namespace tools
