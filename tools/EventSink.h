// The sink that a module connects to an instance to receive its events.
#pragma once

#include <functional>

#include "host/com/ComHeaders.h"

namespace tools {

/// Reference-counted; a new sink has one reference.
class EventSink final : public IDispatch {
 public:
    using NotifyServer = std::function<void(runtime::StringView Aname, runtime::StringView sCommand)>;

    explicit EventSink(NotifyServer notifyServer) : notifyServer_(std::move(notifyServer)) {}

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override;
    ULONG STDMETHODCALLTYPE AddRef() override;
    ULONG STDMETHODCALLTYPE Release() override;

    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override;
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT index, LCID locale, ITypeInfo** information) override;
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID id, LPOLESTR* names, UINT count, LCID locale,
                                            DISPID* members) override;
    HRESULT STDMETHODCALLTYPE Invoke(DISPID member, REFIID id, LCID locale, WORD flags, DISPPARAMS* parameters,
                                     VARIANT* result, EXCEPINFO* exception, UINT* argument) override;

 private:
    ~EventSink() = default;

    NotifyServer notifyServer_;
    ULONG references_ = 1;
};

}  // namespace tools
