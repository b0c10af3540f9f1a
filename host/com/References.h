// The reference count of a COM object, and a reference held for the length of a scope.
#pragma once

#include "host/com/ComHeaders.h"

namespace host::com {

class References {
 public:
    ULONG Add() noexcept { return static_cast<ULONG>(InterlockedIncrement(&count_)); }
    ULONG Drop() noexcept { return static_cast<ULONG>(InterlockedDecrement(&count_)); }

 private:
    LONG count_ = 1;  // its maker's
};

/// Keeps an object over a call that may make the client release it.
class Keep {
 public:
    explicit Keep(IUnknown& object) noexcept : object_(object) { object_.AddRef(); }
    Keep(const Keep&) = delete;
    Keep& operator=(const Keep&) = delete;
    ~Keep() { object_.Release(); }

 private:
    IUnknown& object_;
};

}  // namespace host::com
