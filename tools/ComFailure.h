// ComFailure reports a failed COM call. It has the description from the server's error object, or the system's
// text.
#pragma once

#include <exception>
#include <string>

#include "runtime/win32/WindowsHeaders.h"

namespace tools {

class ComFailure : public std::exception {
 public:
    ComFailure(HRESULT result, std::string description);

    HRESULT Result() const noexcept { return result_; }
    /// "0x800A0035 File not found": UTF-8, one line.
    const char* what() const noexcept override { return text_.c_str(); }

 private:
    HRESULT result_;
    std::string text_;
};

/// Throws a ComFailure if `result` is a failure. The description comes from the thread's error object. The function
/// clears that object. If the object has no description, the description is the system's text for `result`.
void ThrowIfFailed(HRESULT result);

void ClearErrorObject();
/// Throws a ComFailure if the thread has an error object. Use this function after a call that returns no HRESULT.
void ThrowIfErrorObject();

/// Returns the system's text for an HRESULT or Windows error: UTF-8, one line, without the final full stop. Returns ""
/// if the system has no text for the error.
std::string SystemText(HRESULT result);

}  // namespace tools
