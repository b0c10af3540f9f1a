// Parses a command line that describes a message.
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
    std::optional<std::int32_t> timeout = {};        ///< in seconds
    std::optional<std::int32_t> defaultAnswer = {};  ///< code of the answer after the timeout; not set: Cancel
    bool operator==(const MessageArguments&) const = default;
};

/// Parses "[--flags N] [--title T] [--language FOLDER] [--timeout SECONDS [--default CODE]] [--] PROMPT". In PROMPT,
/// "\n" becomes a line break. Throws UsageError for anything else.
MessageArguments ReadMessageArguments(const Arguments& arguments);

/// Parses the seconds of "--timeout", from 1 to a day. Throws UsageError for anything else.
std::int32_t ReadTimeout(StringView text);

/// Returns `written` with each "\n" replaced by a line break (CR LF).
String WithLineBreaks(StringView written);

}  // namespace tools
