// The sink that a module connects to an instance to receive the instance's events.
#pragma once

#include <functional>

#include "host/com/Implements.h"

namespace tools {

/// Reference-counted; a new sink has one reference.
class EventSink final : public host::com::Implements<__clsQmxBackProcess> {
 public:
    using NotifyServer = std::function<void(runtime::StringView Aname, runtime::StringView sCommand)>;

    explicit EventSink(NotifyServer notifyServer) : notifyServer_(std::move(notifyServer)) {}

    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override;
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT index, LCID locale, ITypeInfo** information) override;
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID id, LPOLESTR* names, UINT count, LCID locale,
                                            DISPID* members) override;
    HRESULT STDMETHODCALLTYPE Invoke(DISPID member, REFIID id, LCID locale, WORD flags, DISPPARAMS* parameters,
                                     VARIANT* result, EXCEPINFO* exception, UINT* argument) override;

 private:
    ~EventSink() override = default;

    NotifyServer notifyServer_;
};

}  // namespace tools
