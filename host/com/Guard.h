// The one place that turns what is thrown inside into what a COM client understands. Every COM method, the class
// factory and the exports run inside the guard: an exception never leaves the component.
//
// An error of the runtime with number n becomes HRESULT 0x800A0000 + n; a negative number is a foreign HRESULT that
// passed through and goes on as it is. Its description is left in the thread's error object. A call without an error,
// or with one that has no description, leaves no error object, because a client would take an older one for this
// call's.
#pragma once

#include <exception>
#include <optional>
#include <utility>

#include "host/com/ComHeaders.h"
#include "runtime/Error.h"

namespace host::com {

/// A call that fails with a plain HRESULT. It needs a description where the code alone does not tell a client what to
/// change; not in a late-bound call, whose code the client would then not see.
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
/// E_POINTER for a place for a result that is not there.
inline void RequirePointer(const void* pointer) {
    if (pointer == nullptr) throw ComError(E_POINTER);
}

/// A place for a result, which is empty when the call fails.
template <typename Result>
void Clear(Result* result) noexcept {
    if (result != nullptr) *result = {};
}

/// The HRESULT under which an error of the runtime crosses the edge.
HRESULT HresultOf(const runtime::Error& error) noexcept;
/// Whether `code` is an error of a runtime like ours: 0x800A0000 + number.
bool IsRuntimeError(HRESULT code) noexcept;
/// The runtime's number for a failure reported by a client.
std::int32_t NumberOf(HRESULT code) noexcept;

/// What the exception in flight is for a client. Leaves its description in the thread's error object, or none.
HRESULT CurrentHresult() noexcept;
/// The same for a late-bound call: errors that have a description go into `exception` (which may be null), and the
/// answer is then DISP_E_EXCEPTION.
HRESULT CurrentHresult(EXCEPINFO* exception) noexcept;

/// Takes the error object that a failed call of another object has left: its description goes on to the client.
[[noreturn]] void ThrowWithErrorObject(HRESULT failure);

/// Runs `body`, which returns an HRESULT.
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
