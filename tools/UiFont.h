// The user-interface font of this process, chosen as the main form's load chooses it, but without any window.
#pragma once

#include <cstdint>
#include <optional>

#include "services/Localisation.h"

namespace tools {

/// Chooses the font as on a system of the locale `systemLcid`; without one, of this system's. The ports must have been
/// chosen.
services::FontRule ChooseFont(std::optional<std::int32_t> systemLcid = std::nullopt);

}  // namespace tools
