// Prepares the component's message texts and boxes in this process, as the component prepares them in a module's
// process.
#pragma once

#include <optional>

#include "runtime/Text.h"

namespace tools {

/// Sets the ports, kernel and reader. Publishes the product's identity if no module has published the product's name
/// yet. Sets the module's name and caption (used in titles), the help file's name and the font to the values that the
/// main form's load sets. With a language folder, this process takes its texts from the language file in that folder.
/// Throws the same errors as LanguageFileIn.
void PrepareMessages(const std::optional<runtime::String>& languageFolder = std::nullopt);

}  // namespace tools
