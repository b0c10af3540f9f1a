// The message that the command line describes.
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

/// Parses "[--flags N] [--title T] [--language FOLDER] [--] PROMPT". In PROMPT, "\n" becomes a line break. Throws
/// UsageError for anything else.
MessageArguments ReadMessageArguments(const Arguments& arguments);

/// Returns `written` with each "\n" replaced by a line break (CR LF).
String WithLineBreaks(StringView written);

}  // namespace tools
