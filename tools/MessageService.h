// The component's message texts and boxes, made ready in this process as the component makes them ready in a module's.
#pragma once

#include <optional>

#include "runtime/Text.h"

namespace tools {

/// Chooses ports, kernel and reader. Where no module has published the product's name yet, publishes the product's
/// identity; the module's name and caption, which go into titles, the help file's name and the font become what they
/// are once the main form has loaded. With a language folder, texts come from its file, in this process only; throws
/// when there is none.
void PrepareMessages(const std::optional<runtime::String>& languageFolder = std::nullopt);

}  // namespace tools
