// What the command line says about a value that the query dialog is to ask for.
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
    std::optional<String> buttonCaption;  ///< of the extra button; none for no button
    std::optional<String> languageFolder;
    std::vector<String> values;  ///< the initial text, then the items
    bool operator==(const QueryArguments&) const = default;
};

/// Reads "--kind K [--title T] [--prompt P] [--index I] [--button CAPTION] [--language FOLDER] [--] VALUE0 [ITEM...]",
/// options in any order; "\n" becomes a line break everywhere but in FOLDER. UsageError for anything else.
QueryArguments ReadQueryArguments(const Arguments& arguments);

}  // namespace tools
