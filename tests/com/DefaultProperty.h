// A client's object that has only a default property.
#pragma once

#include "host/com/ComPtr.h"
#include "host/com/References.h"

namespace tests::com {

class DefaultProperty final : public IDispatch {
 public:
    /// The new object does not own the text or object in `value`, which must outlive the new object.
    static host::com::ComPtr<DefaultProperty> Make(const VARIANT& value) {
        return host::com::ComPtr<DefaultProperty>::Attach(new DefaultProperty(value));
    }
    DefaultProperty(const DefaultProperty&) = delete;
    DefaultProperty& operator=(const DefaultProperty&) = delete;

    bool answersItself = false;
    HRESULT failure = S_OK;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override {
        *object = nullptr;
        if (iid != IID_IUnknown && iid != IID_IDispatch) return E_NOINTERFACE;
        *object = static_cast<IDispatch*>(this);
        AddRef();
        return S_OK;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return references_.Add(); }
    ULONG STDMETHODCALLTYPE Release() override {
        const ULONG left = references_.Drop();
        if (left == 0) delete this;
        return left;
    }
    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE Invoke(DISPID member, REFIID, LCID, WORD flags, DISPPARAMS*, VARIANT* result, EXCEPINFO*,
                                     UINT*) override {
        if (FAILED(failure)) return failure;
        if (member != DISPID_VALUE || flags != DISPATCH_PROPERTYGET) return DISP_E_MEMBERNOTFOUND;
        if (!answersItself) return VariantCopy(result, &value_);
        AddRef();
        result->vt = VT_DISPATCH;
        result->pdispVal = this;
        return S_OK;
    }

 private:
    explicit DefaultProperty(const VARIANT& value) : value_(value) {}
    ~DefaultProperty() = default;

    VARIANT value_;
    host::com::References references_;
};

}  // namespace tests::com
