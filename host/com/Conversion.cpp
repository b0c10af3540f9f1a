#include "host/com/Conversion.h"

#include <cstring>
#include <utility>

#include "host/com/ComPtr.h"

namespace host::com {
namespace {

/// The platform's functions take what they only read as if they wrote to it.
VARIANT* Unlocked(const VARIANT& value) {
    return const_cast<VARIANT*>(&value);
}

/// How far default properties are followed: an object may answer with an object, for ever.
constexpr int kLongestChain = 8;

constexpr VARTYPE kVariantReference = VT_VARIANT | VT_BYREF;

/// `argument` without the variants by reference around it.
const VARIANT& Inner(const VARIANT& argument) {
    const VARIANT* inner = &argument;
    for (int i = 0; i < kLongestChain && inner->vt == kVariantReference && inner->pvarVal != nullptr; ++i) {
        inner = inner->pvarVal;
    }
    return *inner;
}

/// What a conversion may answer to a late-bound client; everything else means that the value does not fit.
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
    if (!object || chain >= kLongestChain) return DISP_E_TYPEMISMATCH;
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
            // Flags become words rather than -1 and 0, as everywhere in the suite's language.
            return AsDispatchResult(
                VariantChangeTypeEx(converted.Address(), Unlocked(value), lcid, VARIANT_ALPHABOOL, type));
    }
}

/// Bytes of a variable of a plain type; 0 for a type that no text or number can be put into.
std::size_t SizeOf(VARTYPE type) {
    switch (type) {
        case VT_I1:
        case VT_UI1:
            return 1;
        case VT_I2:
        case VT_UI2:
        case VT_BOOL:
            return 2;
        case VT_I4:
        case VT_UI4:
        case VT_INT:
        case VT_UINT:
        case VT_R4:
            return 4;
        case VT_I8:
        case VT_UI8:
        case VT_R8:
        case VT_CY:
        case VT_DATE:
            return 8;
        default:
            return 0;
    }
}

HRESULT StorePlain(const VARIANT& value, VARTYPE type, LCID lcid, void* place) {
    const std::size_t size = SizeOf(type);
    if (size == 0 && type != VT_DECIMAL) return DISP_E_TYPEMISMATCH;
    Variant converted;
    const HRESULT result = Convert(value, type, lcid, converted);
    if (FAILED(result)) return result;
    if (type == VT_DECIMAL) {
        *static_cast<DECIMAL*>(place) = converted.Get().decVal;
        static_cast<DECIMAL*>(place)->wReserved = 0;  // the variant keeps its type there
    } else {
        std::memcpy(place, &converted.Get().bVal, size);
    }
    return S_OK;
}

HRESULT StoreText(const VARIANT& value, LCID lcid, BSTR& place) {
    Variant converted;
    const HRESULT result = Convert(value, VT_BSTR, lcid, converted);
    if (FAILED(result)) return result;
    SysFreeString(std::exchange(place, converted.Detach().bstrVal));
    return S_OK;
}

}  // namespace

bool IsMissing(const VARIANT& argument) {
    const VARIANT& inner = Inner(argument);
    if (inner.vt == VT_ERROR) return inner.scode == DISP_E_PARAMNOTFOUND;
    return inner.vt == (VT_ERROR | VT_BYREF) && inner.pscode != nullptr && *inner.pscode == DISP_E_PARAMNOTFOUND;
}

const BSTR* FindText(const VARIANT& argument) {
    const VARIANT& inner = Inner(argument);
    if (inner.vt == VT_BSTR) return &inner.bstrVal;
    return inner.vt == (VT_BSTR | VT_BYREF) ? inner.pbstrVal : nullptr;
}

HRESULT Convert(const VARIANT& argument, VARTYPE type, LCID lcid, Variant& converted) {
    const VARIANT& inner = Inner(argument);
    if ((inner.vt & VT_BYREF) == 0) return ConvertValue(inner, type, lcid, converted, 0);
    if (inner.byref == nullptr) return E_POINTER;
    Variant value;
    const HRESULT copied = VariantCopyInd(value.Address(), Unlocked(inner));
    if (FAILED(copied)) return AsDispatchResult(copied);
    return ConvertValue(value.Get(), type, lcid, converted, 0);
}

HRESULT Store(const VARIANT& value, LCID lcid, VARIANT& argument) {
    VARIANT& inner = *Unlocked(Inner(argument));
    const bool isInVariable = &inner != &argument;
    const auto type = static_cast<VARTYPE>(inner.vt & ~VT_BYREF);
    if ((inner.vt & VT_BYREF) == 0) return isInVariable ? VariantCopy(&inner, Unlocked(value)) : S_OK;
    if (type == VT_BSTR) return StoreText(value, lcid, *inner.pbstrVal);
    return StorePlain(value, type, lcid, inner.byref);
}

}  // namespace host::com
