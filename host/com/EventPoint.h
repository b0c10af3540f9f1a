// Implements the instance's connection point for its event interface. The connection point has its own COM identity,
// but a reference to the connection point is a reference to the instance. Use it only on the home thread.
#pragma once

#include "host/com/HomeApartment.h"
#include "host/com/Implements.h"
#include "host/com/Sinks.h"

namespace host::com {

class EventPoint final : public Interfaces<IConnectionPoint, ISupportErrorInfo> {
 public:
    EventPoint(IConnectionPointContainer& container, const HomeMembership& membership, Sinks& sinks) noexcept
        : container_(container), membership_(membership), sinks_(sinks) {}

    ULONG STDMETHODCALLTYPE AddRef() override { return container_.AddRef(); }
    ULONG STDMETHODCALLTYPE Release() override { return container_.Release(); }

    HRESULT STDMETHODCALLTYPE GetConnectionInterface(IID* iid) override;
    HRESULT STDMETHODCALLTYPE GetConnectionPointContainer(IConnectionPointContainer** container) override;
    HRESULT STDMETHODCALLTYPE Advise(IUnknown* sink, DWORD* cookie) override;
    HRESULT STDMETHODCALLTYPE Unadvise(DWORD cookie) override;
    HRESULT STDMETHODCALLTYPE EnumConnections(IEnumConnections** connections) override;

    HRESULT STDMETHODCALLTYPE InterfaceSupportsErrorInfo(REFIID iid) override;

 private:
    /// Clears `results` and runs a member's `body`, which returns an HRESULT. Fails on every thread except the home
    /// thread.
    template <typename Body, typename... Result>
    HRESULT Member(Body&& body, Result*... results) noexcept;

    IConnectionPointContainer& container_;
    const HomeMembership& membership_;
    Sinks& sinks_;
};

}  // namespace host::com
