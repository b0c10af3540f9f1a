// What is said of an instance that has been terminated: by the object itself, and by the COM edge in its place.
#pragma once

#include "runtime/Text.h"

namespace host {

inline constexpr runtime::StringView kInstanceHasEnded = u"this instance has ended; create a new one";

}  // namespace host
