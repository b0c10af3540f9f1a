// What a language file says and lacks, compared with the texts that the component asks for; and the file that a
// translator starts from.
#pragma once

#include <iosfwd>
#include <optional>
#include <span>
#include <string_view>

#include "host/TextCatalogue.h"
#include "runtime/LocalePort.h"

namespace tools {

/// Writes one fact a line to `out`: each text of the catalogue with its translation, then what is wrong with the file,
/// then the count. `bytes` is the language file, none for English. Letter case is the locale's. Gives the number of
/// identifiers that have no translation.
std::size_t WriteTextReport(std::ostream& out, std::span<const host::CatalogueText> catalogue,
                            const std::optional<std::string>& bytes, runtime::LocalePort& locale);

/// The bytes are UTF-16, by their byte order mark or by the NULs of their first characters. Language files are UTF-8.
bool IsUtf16(std::string_view bytes);

/// Writes a language file with the English texts, each under a comment that says where it is shown.
void WriteTextTemplate(std::ostream& out, std::span<const host::CatalogueText> catalogue);

}  // namespace tools
