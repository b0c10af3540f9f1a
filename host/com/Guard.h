// Converts exceptions to results for COM clients. Code that can throw runs inside the guard, so that no exception
// leaves the component.
//
// A runtime error with number n in 0..65535 becomes HRESULT 0x800A0000 + n. A larger number becomes the internal error.
// A negative number is a foreign HRESULT and is returned unchanged. The description is stored in the thread's error
// object.
//
// A call clears the error object if it succeeds or if its error has no description. A client would otherwise read an
// earlier error's description. Only the last Release, if it succeeds, restores the earlier error object.
#pragma once

#include <exception>
#include <optional>
#include <utility>

#include "host/com/ComHeaders.h"
#include "runtime/Error.h"

namespace host::com {

/// An error with its own HRESULT. It has a description if the code does not show what the client must change. The error
/// of an invalid late-bound call has no description. If it had a description, Invoke would return DISP_E_EXCEPTION and
/// not the code.
class ComError : public std::exception {
 public:
    explicit ComError(HRESULT code) noexcept : code_(code) {}
    ComError(HRESULT code, runtime::String description) : code_(code), description_(std::move(description)) {}
    HRESULT Code() const noexcept { return code_; }
    const std::optional<runtime::String>& Description() const noexcept { return description_; }
    const char* what() const noexcept override { return "a COM call failed"; }

 private:
    HRESULT code_;
    std::optional<runtime::String> description_;
};

inline void Check(HRESULT result) {
    if (FAILED(result)) throw ComError(result);
}
/// Throws E_POINTER if `pointer` is null.
inline void RequirePointer(const void* pointer) {
    if (pointer == nullptr) throw ComError(E_POINTER);
}

/// Clears a result before a call, so that the result is empty if the call fails. `result` may be null.
template <typename Result>
void Clear(Result* result) noexcept {
    if (result != nullptr) *result = {};
}

/// Returns the HRESULT that a client receives for a runtime error.
HRESULT HresultOf(const runtime::Error& error) noexcept;
/// True if `code` is the HRESULT of a runtime error: 0x800A0000 + number.
bool IsRuntimeError(HRESULT code) noexcept;
/// Returns the error number for the result `code` of a client's sink. If `code` is not the HRESULT of a runtime error,
/// the number is `code` itself.
std::int32_t NumberOf(HRESULT code) noexcept;

/// Returns the HRESULT for the exception that is being handled. Stores the exception's description in the thread's
/// error object. Clears the error object if there is no description.
HRESULT CurrentHresult() noexcept;
/// Does the same for a late-bound call. If the error has a description, stores it in `exception` and returns
/// DISP_E_EXCEPTION. `exception` may be null. Returns E_OUTOFMEMORY if there is no memory for the description.
HRESULT CurrentHresult(EXCEPINFO* exception) noexcept;

/// Throws an error with the code `failure`, which another object returned. Takes the description from the thread's
/// error object.
[[noreturn]] void ThrowWithErrorObject(HRESULT failure);

/// Runs `body`, which returns an HRESULT. Converts the exceptions of `body` to HRESULTs.
template <typename Body>
HRESULT Guarded(Body&& body) noexcept {
    try {
        const HRESULT result = body();
        SetErrorInfo(0, nullptr);
        return result;
    } catch (...) {
        return CurrentHresult();
    }
}

template <typename Body>
HRESULT GuardedInvoke(EXCEPINFO* exception, Body&& body) noexcept {
    try {
        const HRESULT result = body();
        SetErrorInfo(0, nullptr);
        return result;
    } catch (...) {
        return CurrentHresult(exception);
    }
}

}  // namespace host::com
