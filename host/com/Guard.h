// Converts exceptions to results for COM clients. Every COM method, the class factory and the exports run inside the
// guard, so that no exception leaves the component.
//
// A runtime error with number n becomes HRESULT 0x800A0000 + n. A negative number is a foreign HRESULT and is returned
// unchanged. The description is stored in the thread's error object. A call without an error or without a description
// clears the error object, because a client would otherwise read the description of an earlier error.
#pragma once

#include <exception>
#include <optional>
#include <utility>

#include "host/com/ComHeaders.h"
#include "runtime/Error.h"

namespace host::com {

/// An error with its own HRESULT. It has a description if the code alone does not tell the client what to change. An
/// invalid late-bound call has none, because with a description Invoke returns DISP_E_EXCEPTION instead of the code.
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
/// Throws E_POINTER if `pointer`, the address for a result, is null.
inline void RequirePointer(const void* pointer) {
    if (pointer == nullptr) throw ComError(E_POINTER);
}

/// Clears a result before a call, so that it is empty if the call fails. `result` may be null.
template <typename Result>
void Clear(Result* result) noexcept {
    if (result != nullptr) *result = {};
}

/// The HRESULT that a client receives for a runtime error.
HRESULT HresultOf(const runtime::Error& error) noexcept;
/// Whether `code` is a runtime error: 0x800A0000 + number.
bool IsRuntimeError(HRESULT code) noexcept;
/// The number of the runtime error for an HRESULT that a client has returned.
std::int32_t NumberOf(HRESULT code) noexcept;

/// The HRESULT for the exception that is being handled. Stores its description in the thread's error object, or clears
/// that object.
HRESULT CurrentHresult() noexcept;
/// The same for a late-bound call. An error with a description is stored in `exception`, which may be null, and the
/// result is DISP_E_EXCEPTION.
HRESULT CurrentHresult(EXCEPINFO* exception) noexcept;

/// Throws `failure`, the result of a call of another object, with the description in the thread's error object.
[[noreturn]] void ThrowWithErrorObject(HRESULT failure);

/// Runs `body`, which returns an HRESULT, and converts its exceptions.
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
