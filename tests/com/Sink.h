// A client's event sink. It is a real COM object that records its events and then calls the test's handler.
#pragma once

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "host/com/Bstr.h"
#include "host/com/ComPtr.h"
#include "host/com/References.h"

namespace tests::com {

/// Replaces the string of an event by `text`.
inline void Replace(BSTR& target, runtime::StringView text) {
    SysFreeString(std::exchange(target, host::com::Bstr(text).Detach()));
}

/// The interfaces that a sink offers.
enum class SinkKind { kEvents, kLateBoundOnly, kNoSink };

class Sink final : public IDispatch {
 public:
    using Handler = std::function<HRESULT(BSTR& Aname, BSTR& sCommand, EXCEPINFO& exception)>;

    static host::com::ComPtr<Sink> Make(Handler handler = {}, SinkKind kind = SinkKind::kEvents);
    Sink(const Sink&) = delete;
    Sink& operator=(const Sink&) = delete;

    /// "name|command" of each received event.
    std::vector<std::string> received;
    DWORD thread = 0;
    Handler handler;
    std::function<void()> whenReleased;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override;
    ULONG STDMETHODCALLTYPE AddRef() override { return references_.Add(); }
    ULONG STDMETHODCALLTYPE Release() override;
    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override;
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE Invoke(DISPID member, REFIID iid, LCID lcid, WORD flags, DISPPARAMS* parameters,
                                     VARIANT* result, EXCEPINFO* exception, UINT* badArgument) override;

 private:
    Sink(Handler theHandler, SinkKind kind) : handler(std::move(theHandler)), kind_(kind) {}
    ~Sink();

    SinkKind kind_;
    host::com::References references_;
};

}  // namespace tests::com
