#include "host/com/Conversion.h"

#include "host/com/ComPtr.h"

namespace host::com {
namespace {

/// The system's functions declare arguments as writable even if the functions only read them.
VARIANT* AsWritable(const VARIANT& value) {
    return const_cast<VARIANT*>(&value);
}

/// The maximum number of default properties or references that a conversion follows. A limit is necessary, because a
/// chain of properties or references may be endless.
constexpr int kMaxDefaultProperties = 8;

constexpr VARTYPE kVariantReference = VT_VARIANT | VT_BYREF;

/// Returns the variant at the end of a chain of references to variants.
const VARIANT& WithoutReferences(const VARIANT& argument) {
    const VARIANT* inner = &argument;
    for (int i = 0; i < kMaxDefaultProperties && inner->vt == kVariantReference && inner->pvarVal != nullptr; ++i) {
        inner = inner->pvarVal;
    }
    return *inner;
}

/// Returns `result` if a late-bound client may receive it; otherwise DISP_E_TYPEMISMATCH.
HRESULT AsDispatchResult(HRESULT result) {
    const bool mayPass =
        SUCCEEDED(result) || result == DISP_E_OVERFLOW || result == DISP_E_BADVARTYPE || result == E_OUTOFMEMORY;
    return mayPass ? result : DISP_E_TYPEMISMATCH;
}

ComPtr<IDispatch> ObjectIn(const VARIANT& value) {
    if (value.vt == VT_DISPATCH) return ComPtr<IDispatch>(value.pdispVal);
    return Query<IDispatch>(value.punkVal, IID_IDispatch);
}

HRESULT ReadDefaultProperty(IDispatch* object, LCID lcid, Variant& value) {
    DISPPARAMS none{};
    EXCEPINFO exception{};
    const HRESULT result =
        object->Invoke(DISPID_VALUE, IID_NULL, lcid, DISPATCH_PROPERTYGET, &none, value.Address(), &exception, nullptr);
    SysFreeString(exception.bstrSource);
    SysFreeString(exception.bstrDescription);
    SysFreeString(exception.bstrHelpFile);
    return result;
}

HRESULT ConvertValue(const VARIANT& value, VARTYPE type, LCID lcid, Variant& converted, int chain);

HRESULT ConvertObject(const VARIANT& value, VARTYPE type, LCID lcid, Variant& converted, int chain) {
    const ComPtr<IDispatch> object = ObjectIn(value);
    if (!object || chain >= kMaxDefaultProperties) return DISP_E_TYPEMISMATCH;
    Variant property;
    if (FAILED(ReadDefaultProperty(object.Get(), lcid, property))) return DISP_E_TYPEMISMATCH;
    return ConvertValue(property.Get(), type, lcid, converted, chain + 1);
}

HRESULT ConvertValue(const VARIANT& value, VARTYPE type, LCID lcid, Variant& converted, int chain) {
    if ((value.vt & VT_ARRAY) != 0) return DISP_E_TYPEMISMATCH;
    switch (value.vt) {
        case VT_NULL:
        case VT_ERROR:
            return DISP_E_TYPEMISMATCH;
        case VT_DISPATCH:
        case VT_UNKNOWN:
            return ConvertObject(value, type, lcid, converted, chain);
        default:
            // VARIANT_ALPHABOOL converts Booleans to words instead of -1 and 0. The programming language of the
            // suite's modules does the same.
            return AsDispatchResult(
                VariantChangeTypeEx(converted.Address(), AsWritable(value), lcid, VARIANT_ALPHABOOL, type));
    }
}

}  // namespace

bool IsMissing(const VARIANT& argument) {
    const VARIANT& inner = WithoutReferences(argument);
    if (inner.vt == VT_ERROR) return inner.scode == DISP_E_PARAMNOTFOUND;
    return inner.vt == (VT_ERROR | VT_BYREF) && inner.pscode != nullptr && *inner.pscode == DISP_E_PARAMNOTFOUND;
}

const BSTR* FindText(const VARIANT& argument) {
    const VARIANT& inner = WithoutReferences(argument);
    if (inner.vt == VT_BSTR) return &inner.bstrVal;
    return inner.vt == (VT_BSTR | VT_BYREF) ? inner.pbstrVal : nullptr;
}

HRESULT Convert(const VARIANT& argument, VARTYPE type, LCID lcid, Variant& converted) {
    const VARIANT& inner = WithoutReferences(argument);
    if ((inner.vt & VT_BYREF) == 0) return ConvertValue(inner, type, lcid, converted, 0);
    if (inner.byref == nullptr) return E_POINTER;
    Variant value;
    const HRESULT copied = VariantCopyInd(value.Address(), AsWritable(inner));
    if (FAILED(copied)) return AsDispatchResult(copied);
    return ConvertValue(value.Get(), type, lcid, converted, 0);
}

}  // namespace host::com
