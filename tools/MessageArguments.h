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

/// What ends the options: the argument behind it is none, whatever it looks like.
inline constexpr StringView kEndOfOptions = u"--";

/// Reads "[--flags N] [--title T] [--language FOLDER] [--] PROMPT"; in PROMPT "\n" becomes a line break. UsageError for
/// anything else.
MessageArguments ReadMessageArguments(const Arguments& arguments);

/// The 32-bit number that `text` is, decimal with or without a sign, or hexadecimal after "0x" up to 0xFFFFFFFF;
/// UsageError, which calls it `name`, when it is none.
std::int32_t ReadNumber(StringView text, std::string_view name);

/// `written` with a line break (CR LF) for each "\n".
String WithLineBreaks(StringView written);

}  // namespace tools
