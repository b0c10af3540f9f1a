// A client uses this COM object. The object owns a service object. The object has a dual interface, class information
// and one connection point. It belongs to the home apartment until a client releases its last reference.
//
// The last release terminates the service object while the sinks are still connected. Then it disconnects the sinks. A
// reference taken during that time stays valid, but later calls that need the service object fail with error 91. Each
// call and each event holds a reference, so that the object is not destroyed during the call or event.
//
// Clients may call the object only on the home thread. On another thread, calls through an unmarshalled pointer fail
// with RPC_E_WRONG_THREAD. If another thread releases the last reference, the home thread ends the instance.
#pragma once

#include <memory>

#include "host/ServiceObject.h"
#include "host/com/EventPoint.h"
#include "host/com/HomeApartment.h"
#include "host/com/Implements.h"
#include "host/com/Sinks.h"
#include "host/com/TypeLibrary.h"

namespace host::com {

// Clients also request IExternalConnection, IMarshal, IDispatchEx, IPersistStreamInit and IObjectWithSite. The object
// refuses these interfaces, because the system's marshaller and IDispatch are enough and the object has no stored
// state.
class BackProcessObject final : public Implements<_clsQmxBackProcess, IProvideClassInfo2, ISupportErrorInfo,
                                                  IConnectionPointContainer, IK4TDiagnostics> {
 public:
    /// Creates an instance in the calling apartment and returns its interface `iid`. Throws an error if the creation
    /// fails.
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

    /// Ends the instance. The home window calls this after the last release on another thread.
    void End();

 private:
    explicit BackProcessObject(HomeMembership membership) noexcept;

    /// Terminates the instance. If the instance was terminated before, deletes the object.
    ULONG OnLastRelease() override;
    void MakeService();
    IUnknown& Identity() { return static_cast<_clsQmxBackProcess&>(*this); }
    /// Returns the service object. Throws error 91 after the instance was terminated.
    ServiceObject& Service();
    /// Clears `results` and runs a member's `body`, which returns an HRESULT. Fails on every thread except the home
    /// thread.
    template <typename Body, typename... Result>
    HRESULT Member(Body&& body, Result*... results) noexcept;
    void Terminate();

    HomeMembership membership_;
    Sinks sinks_;
    EventPoint eventPoint_;
    bool isEnded_ = false;
    std::unique_ptr<ServiceObject> service_;
};

}  // namespace host::com
