// The COM object that a client holds: a service object behind a dual interface, with its class information and its
// one connection point. It lives in the home apartment and belongs to whoever holds references to it.
//
// The last release terminates the service object while the sinks are still connected, then disconnects them. Who
// takes a reference meanwhile and keeps it holds a shell that answers error 91 until it is released. A call or an
// event in progress holds a reference of its own, so nothing goes away under it.
#pragma once

#include <memory>

#include "host/com/EventPoint.h"
#include "host/com/HomeApartment.h"
#include "host/com/References.h"
#include "host/com/ServiceObject.h"
#include "host/com/Sinks.h"

namespace host::com {

class BackProcessObject final : public _clsQmxBackProcess,
                                public IProvideClassInfo2,
                                public ISupportErrorInfo,
                                public IConnectionPointContainer {
 public:
    /// A new instance in the calling apartment, as interface `iid`. Throws what creating the service object throws.
    static HRESULT Create(Residence residence, REFIID iid, void** object);

    BackProcessObject(const BackProcessObject&) = delete;
    BackProcessObject& operator=(const BackProcessObject&) = delete;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override;
    ULONG STDMETHODCALLTYPE AddRef() override;
    ULONG STDMETHODCALLTYPE Release() override;

    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override;
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT index, LCID lcid, ITypeInfo** typeInfo) override;
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID iid, LPOLESTR* names, UINT count, LCID lcid, DISPID* ids) override;
    HRESULT STDMETHODCALLTYPE Invoke(DISPID member, REFIID iid, LCID lcid, WORD flags, DISPPARAMS* parameters,
                                     VARIANT* result, EXCEPINFO* exception, UINT* badArgument) override;

    HRESULT STDMETHODCALLTYPE Load(short* iMode, VARIANT_BOOL* result) override;
    HRESULT STDMETHODCALLTYPE NotifyMe(BSTR* Aname, BSTR* sCommand) override;
    HRESULT STDMETHODCALLTYPE get_SeverPath(BSTR* value) override;
    HRESULT STDMETHODCALLTYPE put_SeverPath(BSTR value) override;

    HRESULT STDMETHODCALLTYPE GetClassInfo(ITypeInfo** typeInfo) override;
    HRESULT STDMETHODCALLTYPE GetGUID(DWORD kind, GUID* guid) override;

    HRESULT STDMETHODCALLTYPE InterfaceSupportsErrorInfo(REFIID iid) override;

    HRESULT STDMETHODCALLTYPE EnumConnectionPoints(IEnumConnectionPoints** points) override;
    HRESULT STDMETHODCALLTYPE FindConnectionPoint(REFIID iid, IConnectionPoint** point) override;

 private:
    explicit BackProcessObject(Residence residence);
    ~BackProcessObject() = default;

    IUnknown& Identity() { return static_cast<_clsQmxBackProcess&>(*this); }
    /// Error 91 once it has been terminated.
    ServiceObject& Service();
    void Retire();

    Residence residence_;
    References references_;
    Sinks sinks_;
    EventPoint eventPoint_;
    bool isRetired_ = false;
    std::unique_ptr<ServiceObject> service_;
};

}  // namespace host::com
