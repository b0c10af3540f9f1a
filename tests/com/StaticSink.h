// A client's event sink that is never destroyed.
#pragma once

#include "host/com/Implements.h"

namespace tests::com {

class StaticSink final : public host::com::Interfaces<__clsQmxBackProcess> {
 public:
    /// The sink returns `answer` for every event.
    explicit StaticSink(HRESULT answer) : answer_(answer) {}

    ULONG STDMETHODCALLTYPE AddRef() override { return 2; }
    ULONG STDMETHODCALLTYPE Release() override { return 1; }
    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*, UINT*) override {
        return answer_;
    }

 private:
    const HRESULT answer_;
};

}  // namespace tests::com
