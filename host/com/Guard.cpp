#include "host/com/Guard.h"

#include <new>
#include <utility>

#include "host/com/Bstr.h"
#include "host/com/ComPtr.h"

namespace host::com {
namespace {

constexpr std::uint32_t kRuntimeErrors = 0x800A0000;
constexpr std::int32_t kMaxNumber = 0xFFFF;
constexpr StringView kSource = u"K4TBackProcess";

/// An error as the client receives it. If the code explains the error, there is no description.
struct Failure {
    HRESULT code;
    std::optional<String> description;
};

Failure Described(const runtime::Error& error) {
    return {HresultOf(error), error.Description()};
}

Failure CurrentFailure() noexcept {
    try {
        try {
            throw;
        } catch (const ComError& error) {
            return {error.Code(), error.Description()};
        } catch (const runtime::Error& error) {
            return Described(error);
        } catch (const std::bad_alloc&) {
            return {E_OUTOFMEMORY, {}};
        } catch (const std::exception& error) {
            return Described(runtime::ErrorAbout(runtime::kInternalError, runtime::FromUtf8(error.what())));
        } catch (...) {
            return Described(runtime::Error(runtime::kInternalError));
        }
    } catch (...) {
        // There was no memory for the description.
        return {E_OUTOFMEMORY, {}};
    }
}

/// Replaces the thread's error object. If there is no memory for a new error object, the client receives only the code.
void SetErrorObject(const Failure& failure) noexcept try {
    ComPtr<ICreateErrorInfo> made;
    if (!failure.description || FAILED(CreateErrorInfo(made.Put()))) {
        SetErrorInfo(0, nullptr);
        return;
    }
    made->SetGUID(IID__clsQmxBackProcess);
    made->SetSource(Bstr(kSource).Get());
    made->SetDescription(Bstr(*failure.description).Get());
    SetErrorInfo(0, Query<IErrorInfo>(made.Get(), IID_IErrorInfo).Get());
} catch (...) {
    SetErrorInfo(0, nullptr);
}

}  // namespace

HRESULT HresultOf(const runtime::Error& error) noexcept {
    const std::int32_t number = error.Number();
    if (number < 0) return number;
    const std::int32_t reported = number <= kMaxNumber ? number : static_cast<std::int32_t>(runtime::kInternalError);
    return static_cast<HRESULT>(kRuntimeErrors + static_cast<std::uint32_t>(reported));
}

bool IsRuntimeError(HRESULT code) noexcept {
    return (static_cast<std::uint32_t>(code) & ~static_cast<std::uint32_t>(kMaxNumber)) == kRuntimeErrors;
}

std::int32_t NumberOf(HRESULT code) noexcept {
    return IsRuntimeError(code) ? code & kMaxNumber : code;
}

void ThrowWithErrorObject(HRESULT failure) {
    ComPtr<IErrorInfo> information;
    if (GetErrorInfo(0, information.Put()) != S_OK) throw ComError(failure);
    Bstr description;
    Check(information->GetDescription(description.Address()));
    throw ComError(failure, description.Text());
}

HRESULT CurrentHresult() noexcept {
    const Failure failure = CurrentFailure();
    SetErrorObject(failure);
    return failure.code;
}

HRESULT CurrentHresult(EXCEPINFO* exception) noexcept {
    const Failure failure = CurrentFailure();
    SetErrorObject(failure);
    if (!failure.description) return failure.code;
    if (exception == nullptr) return DISP_E_EXCEPTION;
    try {
        Bstr source(kSource);
        Bstr description(*failure.description);
        *exception = {};
        exception->scode = failure.code;
        exception->bstrSource = source.Detach();
        exception->bstrDescription = description.Detach();
        return DISP_E_EXCEPTION;
    } catch (const std::bad_alloc&) {
        return E_OUTOFMEMORY;
    }
}

}  // namespace host::com
