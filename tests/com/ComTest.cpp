#include "tests/com/ComTest.h"

#include <cstdio>

#include "host/com/HomeApartment.h"
#include "host/com/Server.h"
#include "runtime/win32/Handle.h"

namespace tests::com {

using host::com::ToString;

std::string Hex(HRESULT result) {
    char text[16];
    std::snprintf(text, sizeof text, "0x%08lX", static_cast<unsigned long>(result));
    return text;
}

std::string Utf8(BSTR text) {
    return runtime::ToUtf8(ToString(text));
}

Outcome Invoke(IDispatch* object, DISPID member, WORD flags, std::vector<VARIANT> arguments,
               std::vector<DISPID> names) {
    DISPPARAMS parameters{arguments.data(), names.data(), static_cast<UINT>(arguments.size()),
                          static_cast<UINT>(names.size())};
    EXCEPINFO exception{};
    Outcome outcome;
    outcome.result = object->Invoke(member, IID_NULL, MAKELCID(0x409, SORT_DEFAULT), flags, &parameters,
                                    outcome.value.Address(), &exception, &outcome.badArgument);
    outcome.scode = exception.scode;
    outcome.description = Utf8(exception.bstrDescription);
    outcome.source = Utf8(exception.bstrSource);
    SysFreeString(exception.bstrDescription);
    SysFreeString(exception.bstrSource);
    return outcome;
}

VARIANT OfType(VARTYPE type) {
    VARIANT value;
    VariantInit(&value);
    value.vt = type;
    value.llVal = 0;
    return value;
}

VARIANT Missing() {
    VARIANT value = OfType(VT_ERROR);
    value.scode = DISP_E_PARAMNOTFOUND;
    return value;
}

VARIANT Text(const Bstr& text) {
    VARIANT value = OfType(VT_BSTR);
    value.bstrVal = text.Get();
    return value;
}

VARIANT Number(short number) {
    VARIANT value = OfType(VT_I2);
    value.iVal = number;
    return value;
}

VARIANT ByReference(BSTR* text) {
    VARIANT value = OfType(VT_BSTR | VT_BYREF);
    value.pbstrVal = text;
    return value;
}

VARIANT ByReference(VARIANT* variable) {
    VARIANT value = OfType(VT_VARIANT | VT_BYREF);
    value.pvarVal = variable;
    return value;
}

ErrorObject TakeErrorObject() {
    ComPtr<IErrorInfo> info;
    if (GetErrorInfo(0, info.Put()) != S_OK) return {};
    Bstr description;
    Bstr source;
    info->GetDescription(description.Address());
    info->GetSource(source.Address());
    return {true, runtime::ToUtf8(description.Text()), runtime::ToUtf8(source.Text())};
}

std::string TextOfErrorObject() {
    const ErrorObject object = TakeErrorObject();
    return object.isThere ? object.description : "(none)";
}

void LeaveErrorObject(StringView description) {
    ComPtr<ICreateErrorInfo> made;
    ASSERT_EQ(S_OK, CreateErrorInfo(made.Put()));
    made->SetDescription(Bstr(description).Get());
    SetErrorInfo(0, Query<IErrorInfo>(made.Get(), IID_IErrorInfo).Get());
}

ComPtr<IClassFactory> Factory() {
    ComPtr<IClassFactory> factory;
    host::com::GetClassObject(CLSID_clsQmxBackProcess, IID_IClassFactory, factory.PutVoid());
    return factory;
}

ComPtr<_clsQmxBackProcess> MakeInstance() {
    ComPtr<_clsQmxBackProcess> instance;
    const HRESULT result = Factory()->CreateInstance(nullptr, IID__clsQmxBackProcess, instance.PutVoid());
    EXPECT_EQ("0x00000000", Hex(result));
    return instance;
}

ComPtr<IConnectionPoint> EventsOf(IUnknown* instance) {
    const auto container = Query<IConnectionPointContainer>(instance, IID_IConnectionPointContainer);
    ComPtr<IConnectionPoint> point;
    container->FindConnectionPoint(DIID___clsQmxBackProcess, point.Put());
    return point;
}

DWORD Advise(IUnknown* instance, IUnknown* sink) {
    DWORD cookie = 0;
    EXPECT_EQ("0x00000000", Hex(EventsOf(instance)->Advise(sink, &cookie)));
    return cookie;
}

HRESULT Notify(_clsQmxBackProcess* instance, StringView command) {
    Bstr name;
    Bstr text(command);
    return instance->NotifyMe(name.Address(), text.Address());
}

namespace {

struct OtherThread {
    const std::function<void()>& work;
    DWORD apartment;
};

DWORD WINAPI RunOther(void* parameter) {
    const auto& other = *static_cast<OtherThread*>(parameter);
    CoInitializeEx(nullptr, other.apartment);
    other.work();
    CoUninitialize();
    return 0;
}

}  // namespace

void ServeMessages() {
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) DispatchMessageW(&message);
}

void InOtherApartment(const std::function<void()>& work, DWORD apartment) {
    constexpr DWORD kMaxMilliseconds = 10000;
    OtherThread other{work, apartment};
    runtime::win32::KernelHandle thread(CreateThread(nullptr, 0, RunOther, &other, 0, nullptr));
    HANDLE handle = thread.Get();
    const ULONGLONG end = GetTickCount64() + kMaxMilliseconds;
    while (MsgWaitForMultipleObjects(1, &handle, FALSE, 100, QS_ALLINPUT) != WAIT_OBJECT_0) {
        if (GetTickCount64() > end) {
            ADD_FAILURE() << "the other apartment's work does not end";
            std::fflush(nullptr);
            TerminateProcess(GetCurrentProcess(), 3);
        }
        ServeMessages();
    }
}

ComTest::ComTest() {
    CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
    TheDouble() = {};
    SetErrorInfo(0, nullptr);
}

ComTest::~ComTest() {
    EXPECT_TRUE(host::com::CanUnload()) << "after the test, an instance, a form or a lock still needs the DLL";
    CoUninitialize();
}

}  // namespace tests::com
