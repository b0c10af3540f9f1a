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

/// Returns the text of a by-reference string. A null pointer is a missing argument; a null string is an empty text.
StringView TextAt(const BSTR* place) {
    return place == nullptr ? StringView() : ViewOf(*place);
}

}  // namespace

template <typename Body, typename... Result>
HRESULT BackProcessObject::Member(Body&& body, Result*... results) noexcept {
    (Clear(results), ...);
    return Guarded([&] {
        membership_.RequireHomeThread();
        const ScopedReference held(Identity());
        return body();
    });
}

BackProcessObject::BackProcessObject(HomeMembership membership) noexcept
    : membership_(std::move(membership)), eventPoint_(*this, membership_, sinks_) {
    KeepTypeLibraryOpen();
}

void BackProcessObject::MakeService() {
    service_ = MakeServiceObject([this](String& Aname, String& sCommand) {
        // If the instance's home was given up, its sinks cannot be called from this thread.
        if (!membership_.IsOnHomeThread()) return;
        const ScopedReference held(Identity());
        RaiseNotifyServer(sinks_, Aname, sCommand);
    });
}

HRESULT BackProcessObject::Create(HomeMembership membership, REFIID iid, void** object) {
    auto made = ComPtr<BackProcessObject>::Attach(new BackProcessObject(std::move(membership)));
    // Get the interface before making the service object. If the interface does not exist, the instance must end
    // without a service object, because the termination of a service object would unload the form of all clients.
    ComPtr<IUnknown> wanted;
    Check(made->QueryInterface(iid, wanted.PutVoid()));
    made->MakeService();
    *object = wanted.Detach();
    return S_OK;
}

ULONG BackProcessObject::OnLastRelease() {
    if (isEnded_) return Implements::OnLastRelease();
    isEnded_ = true;
    // Hold a reference until the instance has ended, because the sinks may take and release references during the last
    // event.
    AddRef();
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
    // Release returns no HRESULT, so the guard leaves an error in the thread's error object. If there was no error,
    // restore the earlier error object, because clients often read a call's error after they have released the
    // instance.
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
    // Return RPC_E_WRONG_THREAD instead of DISP_E_EXCEPTION, because no member was called.
    if (!membership_.IsOnHomeThread()) return Member([] { return S_OK; });
    return GuardedInvoke(exception, [&] {
        const ScopedReference held(Identity());
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
