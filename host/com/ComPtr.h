// Owns one reference to a COM interface.
#pragma once

#include <utility>

#include "host/com/ComHeaders.h"

namespace host::com {

template <typename Interface>
class ComPtr {
 public:
    ComPtr() = default;
    /// Adds a reference.
    explicit ComPtr(Interface* pointer) noexcept : pointer_(pointer) {
        if (pointer_ != nullptr) pointer_->AddRef();
    }
    ComPtr(const ComPtr& other) noexcept : ComPtr(other.pointer_) {}
    ComPtr(ComPtr&& other) noexcept : pointer_(other.Detach()) {}
    ComPtr& operator=(ComPtr other) noexcept {
        std::swap(pointer_, other.pointer_);
        return *this;
    }
    ~ComPtr() { Reset(); }

    /// Takes ownership of the caller's reference.
    static ComPtr Attach(Interface* pointer) noexcept {
        ComPtr owner;
        owner.pointer_ = pointer;
        return owner;
    }
    Interface* Detach() noexcept { return std::exchange(pointer_, nullptr); }
    void Reset() noexcept {
        if (Interface* const old = Detach()) old->Release();
    }

    Interface* Get() const noexcept { return pointer_; }
    Interface* operator->() const noexcept { return pointer_; }
    explicit operator bool() const noexcept { return pointer_ != nullptr; }

    /// Returns the address to pass to a function that returns an owned reference. Releases the present reference first.
    Interface** Put() noexcept {
        Reset();
        return &pointer_;
    }
    void** PutVoid() noexcept { return reinterpret_cast<void**>(Put()); }

 private:
    Interface* pointer_ = nullptr;
};

/// Returns the interface `iid` of `unknown`. Empty if the object does not have the interface or `unknown` is null.
template <typename Interface>
ComPtr<Interface> Query(IUnknown* unknown, REFIID iid) {
    ComPtr<Interface> found;
    if (unknown == nullptr || FAILED(unknown->QueryInterface(iid, found.PutVoid()))) return {};
    return found;
}

}  // namespace host::com
