// What goes on inside the component and no client is told, for the tool and for tests.
#pragma once

#include <optional>

#include "runtime/Text.h"

namespace host {

/// "CurrentDesignName", "LanguagePath", or "Caption" (the main form's, none while it is not loaded). None for any other
/// name.
std::optional<runtime::String> DevelopmentValue(runtime::StringView name);

}  // namespace host
