#include "tests/com/Sink.h"

#include <gtest/gtest.h>

#include "host/com/Bstr.h"

namespace tests::com {

host::com::ComPtr<Sink> Sink::Make(Handler handler, SinkKind kind) {
    return host::com::ComPtr<Sink>::Attach(new Sink(std::move(handler), kind));
}

Sink::~Sink() {
    if (whenReleased) whenReleased();
}

HRESULT Sink::QueryInterface(REFIID iid, void** object) {
    *object = nullptr;
    const bool isKnown = iid == IID_IUnknown || (iid == IID_IDispatch && kind_ != SinkKind::kNoSink) ||
                         (iid == DIID___clsQmxBackProcess && kind_ == SinkKind::kEvents);
    if (!isKnown) return E_NOINTERFACE;
    *object = static_cast<IDispatch*>(this);
    AddRef();
    return S_OK;
}

ULONG Sink::Release() {
    const ULONG left = references_.Drop();
    if (left == 0) delete this;
    return left;
}

HRESULT Sink::GetTypeInfoCount(UINT* count) {
    *count = 0;
    return S_OK;
}

HRESULT Sink::Invoke(DISPID member, REFIID iid, LCID, WORD flags, DISPPARAMS* parameters, VARIANT*,
                     EXCEPINFO* exception, UINT*) {
    EXPECT_EQ(1, member);
    EXPECT_TRUE(iid == IID_NULL);
    EXPECT_EQ(DISPATCH_METHOD, flags);
    if (parameters->cArgs != 2 || parameters->cNamedArgs != 0) return DISP_E_BADPARAMCOUNT;
    EXPECT_EQ(VT_BSTR | VT_BYREF, parameters->rgvarg[0].vt);
    EXPECT_EQ(VT_BSTR | VT_BYREF, parameters->rgvarg[1].vt);
    BSTR& name = *parameters->rgvarg[1].pbstrVal;
    BSTR& command = *parameters->rgvarg[0].pbstrVal;
    received.push_back(runtime::ToUtf8(host::com::ToString(name)) + '|' +
                       runtime::ToUtf8(host::com::ToString(command)));
    thread = GetCurrentThreadId();
    if (!handler) return S_OK;
    EXCEPINFO unwanted{};
    return handler(name, command, exception == nullptr ? unwanted : *exception);
}

}  // namespace tests::com
