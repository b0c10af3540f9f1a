// These base classes of the component's COM objects implement QueryInterface for a list of interfaces, and the
// reference count.
#pragma once

#include "host/com/References.h"

namespace host::com {

/// True if QueryInterface may return a pointer to `Interface` for `iid`: if `iid` identifies the interface or one of
/// its base interfaces, except IUnknown.
template <typename Interface>
inline bool Serves(REFIID iid) {
    return iid == __uuidof(Interface);
}
template <>
inline bool Serves<_clsQmxBackProcess>(REFIID iid) {
    return iid == IID__clsQmxBackProcess || iid == IID_IDispatch;
}
template <>
inline bool Serves<__clsQmxBackProcess>(REFIID iid) {
    return iid == DIID___clsQmxBackProcess || iid == IID_IDispatch;
}
template <>
inline bool Serves<IProvideClassInfo2>(REFIID iid) {
    return iid == IID_IProvideClassInfo2 || iid == IID_IProvideClassInfo;
}

/// An object that implements `First` and `Others`. Its COM identity is its `First` interface.
template <typename First, typename... Others>
class Interfaces : public First, public Others... {
 public:
    Interfaces() = default;
    Interfaces(const Interfaces&) = delete;
    Interfaces& operator=(const Interfaces&) = delete;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override {
        if (object == nullptr) return E_POINTER;
        *object = iid == IID_IUnknown ? static_cast<First*>(this) : nullptr;
        const auto offer = [&]<typename Interface>(Interface* offered) {
            if (*object == nullptr && Serves<Interface>(iid)) *object = offered;
        };
        offer(static_cast<First*>(this));
        (offer(static_cast<Others*>(this)), ...);
        if (*object == nullptr) return E_NOINTERFACE;
        static_cast<First*>(this)->AddRef();
        return S_OK;
    }

 protected:
    ~Interfaces() = default;
};

/// Adds a reference count. The count begins with the creator's reference.
template <typename First, typename... Others>
class Implements : public Interfaces<First, Others...> {
 public:
    ULONG STDMETHODCALLTYPE AddRef() override { return references_.Add(); }
    ULONG STDMETHODCALLTYPE Release() override {
        const ULONG left = references_.Drop();
        return left > 0 ? left : OnLastRelease();
    }

 protected:
    virtual ~Implements() = default;

    /// Runs when the last reference is released. Release returns the result.
    virtual ULONG OnLastRelease() {
        delete this;
        return 0;
    }

 private:
    References references_;
};

}  // namespace host::com
