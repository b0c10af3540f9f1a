// Implements the reference count of a COM object, and a reference that is held for the length of a scope.
#pragma once

#include "host/com/ComHeaders.h"

namespace host::com {

class References {
 public:
    ULONG Add() noexcept { return static_cast<ULONG>(InterlockedIncrement(&count_)); }
    ULONG Drop() noexcept { return static_cast<ULONG>(InterlockedDecrement(&count_)); }

 private:
    LONG count_ = 1;  // the creator's reference
};

/// Holds a reference during a call in which the client may release the object.
class ScopedReference {
 public:
    explicit ScopedReference(IUnknown& object) noexcept : object_(object) { object_.AddRef(); }
    ScopedReference(const ScopedReference&) = delete;
    ScopedReference& operator=(const ScopedReference&) = delete;
    ~ScopedReference() { object_.Release(); }

 private:
    IUnknown& object_;
};

}  // namespace host::com
