// An end for work that splits comma fields: the field splitter does not return for a quote that is not closed.
#pragma once

#include <functional>
#include <string_view>

#include "tools/Verb.h"

namespace tools {

/// Runs `work` on another thread and throws its error. When it has not returned after ten seconds the process ends with
/// kFailure, because such a thread cannot be ended; the message begins with `verb` and says that the quote of `field`
/// is to be closed.
void SplitOrEnd(std::string_view verb, std::string_view field, const std::function<void()>& work, Console& console);

}  // namespace tools
