#include "host/com/BackProcessObject.h"

#include <utility>

#include "host/com/Bstr.h"
#include "host/com/Dispatch.h"
#include "host/com/Enumerator.h"
#include "host/com/Events.h"
#include "host/com/Guard.h"
#include "host/com/TypeLibrary.h"

namespace host::com {
namespace {

/// A by-reference string of an early-bound call: a null pointer is a missing argument, a null string an empty one.
StringView TextAt(const BSTR* place) {
    return place == nullptr ? StringView() : ViewOf(*place);
}

void WriteBack(const TextInOut& text, BSTR* place) {
    if (place != nullptr && text.Changed()) Replace(*place, *text.Changed());
}

}  // namespace

BackProcessObject::BackProcessObject(Residence residence)
    : residence_(std::move(residence)), eventPoint_(*this, sinks_) {
    service_ = MakeServiceObject([this](String& Aname, String& sCommand) {
        const Keep keep(Identity());
        RaiseNotifyServer(sinks_, Aname, sCommand);
    });
}

HRESULT BackProcessObject::Create(Residence residence, REFIID iid, void** object) {
    auto made = ComPtr<BackProcessObject>::Attach(new BackProcessObject(std::move(residence)));
    return made->QueryInterface(iid, object);
}

// Asked for and not offered: IExternalConnection, IMarshal, IDispatchEx, IPersistStreamInit, IObjectWithSite. The
// system's marshaller, plain late binding and an object without stored state are what clients get.
HRESULT BackProcessObject::QueryInterface(REFIID iid, void** object) {
    if (object == nullptr) return E_POINTER;
    *object = nullptr;
    if (iid == IID_IUnknown || iid == IID_IDispatch || iid == IID__clsQmxBackProcess) {
        *object = static_cast<_clsQmxBackProcess*>(this);
    } else if (iid == IID_IProvideClassInfo || iid == IID_IProvideClassInfo2) {
        *object = static_cast<IProvideClassInfo2*>(this);
    } else if (iid == IID_ISupportErrorInfo) {
        *object = static_cast<ISupportErrorInfo*>(this);
    } else if (iid == IID_IConnectionPointContainer) {
        *object = static_cast<IConnectionPointContainer*>(this);
    } else {
        return E_NOINTERFACE;
    }
    AddRef();
    return S_OK;
}

ULONG BackProcessObject::AddRef() {
    return references_.Add();
}

ULONG BackProcessObject::Release() {
    const ULONG left = references_.Drop();
    if (left > 0) return left;
    if (isRetired_) {
        delete this;
        return 0;
    }
    isRetired_ = true;
    // Held while the sinks are told: their references come and go, and some may stay.
    references_.Add();
    Retire();
    return Release();
}

void BackProcessObject::Retire() {
    // A release has no result; the guard leaves the error in the thread's error object.
    Guarded([this] {
        service_->Terminate();
        return S_OK;
    });
    sinks_.Close();
    service_.reset();
}

ServiceObject& BackProcessObject::Service() {
    if (!service_) throw runtime::ErrorAbout(runtime::kObjectVariableNotSet, kInstanceHasEnded);
    return *service_;
}

HRESULT BackProcessObject::GetTypeInfoCount(UINT* count) {
    if (count == nullptr) return E_POINTER;
    *count = 1;
    return S_OK;
}

HRESULT BackProcessObject::GetTypeInfo(UINT index, LCID, ITypeInfo** typeInfo) {
    return Guarded([&] {
        RequirePointer(typeInfo);
        *typeInfo = nullptr;
        if (index != 0) throw ComError(DISP_E_BADINDEX);
        *typeInfo = DescriptionOf(IID__clsQmxBackProcess).Detach();
        return S_OK;
    });
}

HRESULT BackProcessObject::GetIDsOfNames(REFIID iid, LPOLESTR* names, UINT count, LCID, DISPID* ids) {
    return Guarded([&] { return FindMemberIds(iid, names, count, ids); });
}

HRESULT BackProcessObject::Invoke(DISPID member, REFIID iid, LCID lcid, WORD flags, DISPPARAMS* parameters,
                                  VARIANT* result, EXCEPINFO* exception, UINT* badArgument) {
    return GuardedInvoke(exception, [&] {
        const Keep keep(Identity());
        if (iid != IID_NULL) throw ComError(DISP_E_UNKNOWNINTERFACE);
        RequirePointer(parameters);
        return InvokeMember(Service(), {member, flags, lcid, *parameters, result, badArgument});
    });
}

HRESULT BackProcessObject::Load(short* iMode, VARIANT_BOOL* result) {
    return Guarded([&] {
        const Keep keep(Identity());
        RequirePointer(result);
        *result = VARIANT_FALSE;
        RequirePointer(iMode);
        std::int16_t mode = *iMode;
        const bool broughtUp = Service().Load(mode);
        *iMode = mode;
        *result = broughtUp ? VARIANT_TRUE : VARIANT_FALSE;
        return S_OK;
    });
}

HRESULT BackProcessObject::NotifyMe(BSTR* Aname, BSTR* sCommand) {
    return Guarded([&] {
        const Keep keep(Identity());
        TextInOut name(TextAt(Aname));
        TextInOut command(TextAt(sCommand));
        Service().NotifyMe(name, command);
        WriteBack(name, Aname);
        WriteBack(command, sCommand);
        return S_OK;
    });
}

HRESULT BackProcessObject::get_SeverPath(BSTR* value) {
    return Guarded([&] {
        const Keep keep(Identity());
        RequirePointer(value);
        *value = nullptr;
        *value = Bstr(Service().SeverPath()).Detach();
        return S_OK;
    });
}

HRESULT BackProcessObject::put_SeverPath(BSTR value) {
    return Guarded([&] {
        const Keep keep(Identity());
        Service().SetSeverPath(ToString(value));
        return S_OK;
    });
}

HRESULT BackProcessObject::GetClassInfo(ITypeInfo** typeInfo) {
    return Guarded([&] {
        RequirePointer(typeInfo);
        *typeInfo = nullptr;
        *typeInfo = DescriptionOf(CLSID_clsQmxBackProcess).Detach();
        return S_OK;
    });
}

HRESULT BackProcessObject::GetGUID(DWORD kind, GUID* guid) {
    if (guid == nullptr) return E_POINTER;
    *guid = GUID_NULL;
    if (kind != GUIDKIND_DEFAULT_SOURCE_DISP_IID) return E_INVALIDARG;
    *guid = DIID___clsQmxBackProcess;
    return S_OK;
}

HRESULT BackProcessObject::InterfaceSupportsErrorInfo(REFIID iid) {
    return iid == IID__clsQmxBackProcess || iid == IID_IDispatch ? S_OK : S_FALSE;
}

HRESULT BackProcessObject::EnumConnectionPoints(IEnumConnectionPoints** points) {
    return Guarded([&] {
        RequirePointer(points);
        *points = nullptr;
        *points = EnumerateConnectionPoints({ComPtr<IConnectionPoint>(&eventPoint_)}).Detach();
        return S_OK;
    });
}

HRESULT BackProcessObject::FindConnectionPoint(REFIID iid, IConnectionPoint** point) {
    if (point == nullptr) return E_POINTER;
    *point = nullptr;
    if (iid != DIID___clsQmxBackProcess) return CONNECT_E_NOCONNECTION;
    eventPoint_.AddRef();
    *point = &eventPoint_;
    return S_OK;
}

}  // namespace host::com
