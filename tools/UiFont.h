// Chooses this process's user-interface font by the main form's rule. The function needs no window.
#pragma once

#include <cstdint>
#include <optional>

#include "services/Localisation.h"

namespace tools {

/// Chooses the font for a system with the locale `systemLcid`. The default is this system's locale. The ports and the
/// process's values must have been set.
services::FontRule ChooseFont(std::optional<std::int32_t> systemLcid = std::nullopt);

}  // namespace tools
