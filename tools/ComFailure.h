// A COM call that failed, with the description that its server left.
#pragma once

#include <exception>
#include <string>

#include "runtime/win32/WindowsHeaders.h"

namespace tools {

class ComFailure : public std::exception {
 public:
    ComFailure(HRESULT result, std::string description);

    HRESULT Result() const noexcept { return result_; }
    /// "0x800A0035 File not found", in UTF-8 and on one line.
    const char* what() const noexcept override { return text_.c_str(); }

 private:
    HRESULT result_;
    std::string text_;
};

/// Throws a ComFailure when `result` is one. Its description is that of the thread's error object, which is used up,
/// else the system's text for `result`.
void ThrowIfFailed(HRESULT result);

/// Clears the thread's error object.
void ClearErrorObject();
/// Throws a ComFailure when there is something in the thread's error object: for a call that has no result.
void ThrowIfErrorObject();

/// The system's text for an HRESULT or Windows error, in UTF-8, on one line and without the full stop at its end; ""
/// when it has none.
std::string SystemText(HRESULT result);

}  // namespace tools
