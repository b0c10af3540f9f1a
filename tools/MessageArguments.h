// What the command line says about a message that is to be shown.
#pragma once

#include <cstdint>
#include <optional>

#include "tools/Verb.h"

namespace tools {

struct MessageArguments {
    String prompt;
    std::int32_t flags = 0;
    std::optional<String> title;
    std::optional<String> languageFolder = {};
    bool operator==(const MessageArguments&) const = default;
};

/// Reads "[--flags N] [--title T] [--language FOLDER] [--] PROMPT"; in PROMPT "\n" becomes a line break. UsageError for
/// anything else.
MessageArguments ReadMessageArguments(const Arguments& arguments);

/// `written` with a line break (CR LF) for each "\n".
String WithLineBreaks(StringView written);

}  // namespace tools
