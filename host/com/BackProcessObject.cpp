#include "host/com/BackProcessObject.h"

#include <utility>

#include "host/com/Bstr.h"
#include "host/com/Component.h"
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

}  // namespace

template <typename Body, typename... Result>
HRESULT BackProcessObject::Member(Body&& body, Result*... results) noexcept {
    (Clear(results), ...);
    return Guarded([&] {
        residence_.RequireHere();
        const Keep keep(Identity());
        return body();
    });
}

BackProcessObject::BackProcessObject(Residence residence) noexcept
    : residence_(std::move(residence)), eventPoint_(*this, residence_, sinks_) {}

void BackProcessObject::MakeService() {
    service_ = MakeServiceObject([this](String& Aname, String& sCommand) {
        // The event belongs to the present home; sinks of one that was given up cannot be called from here.
        if (!residence_.IsHere()) return;
        const Keep keep(Identity());
        RaiseNotifyServer(sinks_, Aname, sCommand);
    });
}

HRESULT BackProcessObject::Create(Residence residence, REFIID iid, void** object) {
    auto made = ComPtr<BackProcessObject>::Attach(new BackProcessObject(std::move(residence)));
    // The interface first: making a service object and ending it again would unload the form for every other client.
    ComPtr<IUnknown> wanted;
    Check(made->QueryInterface(iid, wanted.PutVoid()));
    made->MakeService();
    *object = wanted.Detach();
    return S_OK;
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
    } else if (iid == IID_IK4TDiagnostics) {
        *object = static_cast<IK4TDiagnostics*>(this);
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
    if (isEnded_) {
        delete this;
        return 0;
    }
    isEnded_ = true;
    // Held until it has ended: sinks take and release references while they are called, and may keep some.
    references_.Add();
    if (EndAtHome(*this)) return 0;
    Terminate();
    return Release();
}

void BackProcessObject::End() {
    // The home may have changed since the message was posted.
    if (EndAtHome(*this)) return;
    Terminate();
    Release();
}

void BackProcessObject::Terminate() {
    // A release has no result; the guard leaves the error in the thread's error object. Without an error the object
    // stays what it was before: a client often releases an instance before it looks at the error of the call before.
    ComPtr<IErrorInfo> before;
    GetErrorInfo(0, before.Put());
    const HRESULT result = Guarded([this] {
        if (service_) service_->Terminate();
        return S_OK;
    });
    if (SUCCEEDED(result)) SetErrorInfo(0, before.Get());
    sinks_.Close();
    service_.reset();
}

ServiceObject& BackProcessObject::Service() {
    if (!service_) throw runtime::ErrorAbout(runtime::kObjectVariableNotSet, kInstanceHasEnded);
    return *service_;
}

HRESULT BackProcessObject::GetTypeInfoCount(UINT* count) {
    return Member(
        [&] {
            RequirePointer(count);
            *count = 1;
            return S_OK;
        },
        count);
}

HRESULT BackProcessObject::GetTypeInfo(UINT index, LCID, ITypeInfo** typeInfo) {
    return Member(
        [&] {
            RequirePointer(typeInfo);
            if (index != 0) throw ComError(DISP_E_BADINDEX);
            *typeInfo = DescriptionOf(IID__clsQmxBackProcess).Detach();
            return S_OK;
        },
        typeInfo);
}

HRESULT BackProcessObject::GetIDsOfNames(REFIID iid, LPOLESTR* names, UINT count, LCID, DISPID* ids) {
    return Member([&] { return FindMemberIds(iid, names, count, ids); });
}

HRESULT BackProcessObject::Invoke(DISPID member, REFIID iid, LCID lcid, WORD flags, DISPPARAMS* parameters,
                                  VARIANT* result, EXCEPINFO* exception, UINT* badArgument) {
    // The code itself, not an exception of the call: nothing was called.
    if (!residence_.IsHere()) return Member([] { return S_OK; });
    return GuardedInvoke(exception, [&] {
        const Keep keep(Identity());
        if (iid != IID_NULL) throw ComError(DISP_E_UNKNOWNINTERFACE);
        RequirePointer(parameters);
        return InvokeMember(Service(), {member, flags, lcid, *parameters, result, badArgument});
    });
}

HRESULT BackProcessObject::Load(short* iMode, VARIANT_BOOL* result) {
    return Member(
        [&] {
            RequirePointer(result);
            RequirePointer(iMode);
            *result = Service().Load(*iMode) ? VARIANT_TRUE : VARIANT_FALSE;
            return S_OK;
        },
        result);
}

HRESULT BackProcessObject::NotifyMe(BSTR* Aname, BSTR* sCommand) {
    return Member([&] {
        Service().NotifyMe(TextAt(Aname), TextAt(sCommand));
        return S_OK;
    });
}

HRESULT BackProcessObject::get_SeverPath(BSTR* value) {
    return Member(
        [&] {
            RequirePointer(value);
            *value = Bstr(Service().SeverPath()).Detach();
            return S_OK;
        },
        value);
}

HRESULT BackProcessObject::put_SeverPath(BSTR value) {
    return Member([&] {
        Service().SetSeverPath(ToString(value));
        return S_OK;
    });
}

HRESULT BackProcessObject::GetClassInfo(ITypeInfo** typeInfo) {
    return Member(
        [&] {
            RequirePointer(typeInfo);
            *typeInfo = DescriptionOf(CLSID_clsQmxBackProcess).Detach();
            return S_OK;
        },
        typeInfo);
}

HRESULT BackProcessObject::GetGUID(DWORD kind, GUID* guid) {
    return Member(
        [&] {
            RequirePointer(guid);
            if (kind != GUIDKIND_DEFAULT_SOURCE_DISP_IID) return E_INVALIDARG;
            *guid = DIID___clsQmxBackProcess;
            return S_OK;
        },
        guid);
}

HRESULT BackProcessObject::InterfaceSupportsErrorInfo(REFIID iid) {
    return iid == IID__clsQmxBackProcess || iid == IID_IDispatch || iid == IID_IK4TDiagnostics ? S_OK : S_FALSE;
}

HRESULT BackProcessObject::EnumConnectionPoints(IEnumConnectionPoints** points) {
    return Member(
        [&] {
            RequirePointer(points);
            *points = EnumerateConnectionPoints({ComPtr<IConnectionPoint>(&eventPoint_)}).Detach();
            return S_OK;
        },
        points);
}

HRESULT BackProcessObject::FindConnectionPoint(REFIID iid, IConnectionPoint** point) {
    return Member(
        [&] {
            RequirePointer(point);
            if (iid != DIID___clsQmxBackProcess) return CONNECT_E_NOCONNECTION;
            eventPoint_.AddRef();
            *point = &eventPoint_;
            return S_OK;
        },
        point);
}

HRESULT BackProcessObject::AP_SendCmd(BSTR module, BSTR command) {
    return Member([&] {
        Service().AP_SendCmd(ToString(module), ToString(command));
        return S_OK;
    });
}

HRESULT BackProcessObject::AP_SendCmdAll(BSTR command) {
    return Member([&] {
        Service().AP_SendCmdAll(ToString(command));
        return S_OK;
    });
}

HRESULT BackProcessObject::AP_Shell(BSTR module, short mode, BSTR commandLine) {
    return Member([&] {
        Service().AP_Shell(ToString(module), mode, ViewOf(commandLine));
        return S_OK;
    });
}

HRESULT BackProcessObject::get_CurrentDesignName(BSTR* name) {
    return Member(
        [&] {
            RequirePointer(name);
            *name = Bstr(Service().CurrentDesignName()).Detach();
            return S_OK;
        },
        name);
}

HRESULT BackProcessObject::get_LanguagePath(BSTR* folder) {
    return Member(
        [&] {
            RequirePointer(folder);
            *folder = Bstr(Service().LanguagePath()).Detach();
            return S_OK;
        },
        folder);
}

HRESULT BackProcessObject::get_Caption(BSTR* caption) {
    return Member(
        [&] {
            RequirePointer(caption);
            const std::optional<String> text = Service().Caption();
            if (text) *caption = Bstr(*text).Detach();
            return text ? S_OK : S_FALSE;
        },
        caption);
}

}  // namespace host::com
