// The thread's membership in a single-threaded apartment, as a module of the suite has it.
#pragma once

#include "host/com/ComHeaders.h"
#include "tools/ComFailure.h"

namespace tools {

class Apartment {
 public:
    Apartment() { ThrowIfFailed(OleInitialize(nullptr)); }
    Apartment(const Apartment&) = delete;
    Apartment& operator=(const Apartment&) = delete;
    ~Apartment() { OleUninitialize(); }
};

}  // namespace tools
