// Texts for the user: localised texts with their English defaults, and the one way to show a message.
#pragma once

#include <cstdint>
#include <optional>

#include "runtime/Text.h"

namespace services {

using runtime::String;
using runtime::StringView;

/// Style bits of messages, the platform's own.
enum MessageFlags : std::int32_t {
    kExclamation = 48,
    kSystemModal = 4096,
};

/// The text under `textId` in the current language, or `defaultText`.
String GetLocalText(StringView defaultText, StringView textId);

/// Shows a message and returns the code of the pressed button (OK 1, Cancel 2, Abort 3, Retry 4, Ignore 5, Yes 6,
/// No 7). Without a title: the product's name.
std::int32_t ShowMessage(StringView prompt, std::int32_t flags, std::optional<String> title = std::nullopt);

}  // namespace services
