// The COM object that a client holds: a service object behind a dual interface, with its class information and its
// one connection point. It lives in the home apartment as long as references to it are held.
//
// The last release terminates the service object while the sinks are still connected, then disconnects them. A
// reference that is taken in that time stays valid, but every call on it fails with error 91. A call or an event in
// progress holds a reference of its own, so nothing is destroyed under it.
//
// Only the home thread may call it. A client that passes the bare pointer to another thread gets RPC_E_WRONG_THREAD
// from every member; a last release there has the home thread end the instance.
#pragma once

#include <memory>

#include "host/ServiceObject.h"
#include "host/com/EventPoint.h"
#include "host/com/HomeApartment.h"
#include "host/com/Implements.h"
#include "host/com/Sinks.h"
#include "host/com/TypeLibrary.h"

namespace host::com {

// Asked for and not offered: IExternalConnection, IMarshal, IDispatchEx, IPersistStreamInit, IObjectWithSite. The
// system's marshaller, plain late binding and an object without stored state are what clients get.
class BackProcessObject final : public Implements<_clsQmxBackProcess, IProvideClassInfo2, ISupportErrorInfo,
                                                  IConnectionPointContainer, IK4TDiagnostics> {
 public:
    /// A new instance in the calling apartment, as interface `iid`. Throws what creating the service object throws.
    static HRESULT Create(HomeMembership membership, REFIID iid, void** object);

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

    HRESULT STDMETHODCALLTYPE AP_SendCmd(BSTR module, BSTR command) override;
    HRESULT STDMETHODCALLTYPE AP_SendCmdAll(BSTR command) override;
    HRESULT STDMETHODCALLTYPE AP_Shell(BSTR module, short mode, BSTR commandLine) override;
    HRESULT STDMETHODCALLTYPE get_CurrentDesignName(BSTR* name) override;
    HRESULT STDMETHODCALLTYPE get_LanguagePath(BSTR* folder) override;
    HRESULT STDMETHODCALLTYPE get_Caption(BSTR* caption) override;

    /// For the home window: ends the instance after its last release.
    void End();

 private:
    explicit BackProcessObject(HomeMembership membership) noexcept;

    /// Terminates the instance, and deletes it at the release after that.
    ULONG OnLastRelease() override;
    void MakeService();
    IUnknown& Identity() { return static_cast<_clsQmxBackProcess&>(*this); }
    /// Error 91 once it has been terminated.
    ServiceObject& Service();
    /// Runs a member's `body`, which returns its HRESULT, on the home thread only. `results` are cleared in any case.
    template <typename Body, typename... Result>
    HRESULT Member(Body&& body, Result*... results) noexcept;
    void Terminate();

    HomeMembership membership_;
    /// Never used: the type library stays open while an instance lives, because the system's marshaller asks for it
    /// from every thread.
    const ComPtr<ITypeLib> typeLibrary_ = OpenTypeLibrary();
    Sinks sinks_;
    EventPoint eventPoint_;
    bool isEnded_ = false;
    std::unique_ptr<ServiceObject> service_;
};

}  // namespace host::com
