// A check before a text of comma fields is split: the field splitter does not return for a quote that is not closed.
#pragma once

#include "runtime/Text.h"

namespace tools {

/// Throws std::runtime_error, which names the field, for a text whose quoted field is not closed.
void RequireClosedQuotes(runtime::StringView text);

}  // namespace tools
