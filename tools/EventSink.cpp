// Implements the component's event interface, as every client with events must do.
#include "tools/EventSink.h"

#include <new>

#include "host/com/ComHeaders.h"

namespace tools {

namespace {

constexpr DISPID kNotifyServer = 1;

/// Reads a string argument that was passed by value or by reference.
class TextArgument {
 public:
    explicit TextArgument(VARIANT& argument) {
        VariantInit(&text_);
        result_ = VariantCopyInd(&text_, &argument);
        if (SUCCEEDED(result_)) result_ = VariantChangeType(&text_, &text_, 0, VT_BSTR);
    }
    TextArgument(const TextArgument&) = delete;
    TextArgument& operator=(const TextArgument&) = delete;
    ~TextArgument() { VariantClear(&text_); }

    HRESULT Result() const { return result_; }
    runtime::StringView Text() const { return {runtime::win32::Utf16(text_.bstrVal), SysStringLen(text_.bstrVal)}; }

 private:
    VARIANT text_;
    HRESULT result_;
};

}  // namespace

HRESULT EventSink::GetTypeInfoCount(UINT* count) {
    if (count == nullptr) return E_POINTER;
    *count = 0;
    return S_OK;
}

HRESULT EventSink::GetTypeInfo(UINT, LCID, ITypeInfo** information) {
    if (information != nullptr) *information = nullptr;
    return E_NOTIMPL;
}

HRESULT EventSink::GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) {
    return E_NOTIMPL;
}

HRESULT EventSink::Invoke(DISPID member, REFIID, LCID, WORD, DISPPARAMS* parameters, VARIANT*, EXCEPINFO*, UINT*) try {
    if (member != kNotifyServer) return DISP_E_MEMBERNOTFOUND;
    if (parameters == nullptr || parameters->cArgs != 2) return DISP_E_BADPARAMCOUNT;
    // COM passes arguments in reverse order.
    const TextArgument name(parameters->rgvarg[1]);
    const TextArgument command(parameters->rgvarg[0]);
    if (FAILED(name.Result())) return name.Result();
    if (FAILED(command.Result())) return command.Result();
    notifyServer_(name.Text(), command.Text());
    return S_OK;
} catch (const std::bad_alloc&) {
    return E_OUTOFMEMORY;
} catch (const std::exception&) {
    return E_FAIL;
}

}  // namespace tools
