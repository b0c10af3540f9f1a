// Initialises OLE on the current thread. A module of the suite does the same. The thread is in a single-threaded
// apartment until the object is destroyed.
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
