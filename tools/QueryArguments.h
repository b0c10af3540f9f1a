// Parses a command line that describes a query dialog.
#pragma once

#include <cstdint>
#include <optional>

#include "tools/Verb.h"

namespace tools {

struct QueryArguments {
    std::int32_t kind = 0;
    std::optional<String> title;
    String prompt;
    std::int32_t index = -1;
    std::optional<String> buttonCaption;  ///< caption of the extra button; not set: no extra button
    std::optional<String> languageFolder;
    std::optional<std::int32_t> timeout;  ///< in seconds
    std::optional<String> defaultText;    ///< the answer after the timeout; not set: Cancel
    std::int32_t defaultIndex = -1;       ///< printed with the default answer; -1 for Cancel
    std::vector<String> values;           ///< the initial text, followed by the items
    bool operator==(const QueryArguments&) const = default;
};

/// Parses "--kind K [--title T] [--prompt P] [--index I] [--button CAPTION] [--language FOLDER] [--timeout SECONDS
/// [--default TEXT]] [--] VALUE0 [ITEM...]", with the options in any order. "\n" becomes a line break everywhere except
/// in FOLDER. Throws UsageError for anything else.
QueryArguments ReadQueryArguments(const Arguments& arguments);

}  // namespace tools
