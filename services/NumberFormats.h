// The suite's shared formats of coordinates and values. Kept for callers; nothing in the component formats with them.
#pragma once

#include "runtime/NeverDestroyed.h"
#include "runtime/Text.h"

namespace services {

/// Format patterns in the classic BASIC notation; empty until InitNumberFormats.
struct NumberFormats {
    runtime::String coordinate;
    runtime::String value;
    runtime::String oneDecimal;
    runtime::String fixedCoordinate;
    runtime::String fixedValue;
};

inline NumberFormats& numberFormats = runtime::NeverDestroyed<NumberFormats>();

void InitNumberFormats();

}  // namespace services
