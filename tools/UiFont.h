// The font of the user interface in this process, chosen by the main form's rule but without a window.
#pragma once

#include <cstdint>
#include <optional>

#include "services/Localisation.h"

namespace tools {

/// Chooses the font for a system with the locale `systemLcid`; by default, for this system. The ports must have been
/// set.
services::FontRule ChooseFont(std::optional<std::int32_t> systemLcid = std::nullopt);

}  // namespace tools
