// Owns a BSTR, and converts between BSTRs and the runtime's strings. A null BSTR is an empty string.
#pragma once

#include <new>
#include <utility>

#include "host/com/ComHeaders.h"
#include "runtime/Text.h"

namespace host::com {

using runtime::String;
using runtime::StringView;

/// Returns the text of `bstr`, including NULs. If the number of bytes is odd, ignores the last byte.
inline StringView ViewOf(BSTR bstr) {
    return bstr == nullptr ? StringView() : StringView(runtime::win32::Utf16(bstr), SysStringLen(bstr));
}
inline String ToString(BSTR bstr) {
    return String(ViewOf(bstr));
}

class Bstr {
 public:
    Bstr() = default;
    explicit Bstr(StringView text)
        : bstr_(SysAllocStringLen(reinterpret_cast<const wchar_t*>(text.data()), static_cast<UINT>(text.size()))) {
        if (bstr_ == nullptr) throw std::bad_alloc();
    }
    /// Takes ownership of `bstr`.
    static Bstr Attach(BSTR bstr) noexcept {
        Bstr attached;
        attached.bstr_ = bstr;
        return attached;
    }
    Bstr(Bstr&& other) noexcept : bstr_(other.Detach()) {}
    Bstr& operator=(Bstr&& other) noexcept {
        std::swap(bstr_, other.bstr_);
        return *this;
    }
    ~Bstr() { SysFreeString(bstr_); }

    BSTR Get() const noexcept { return bstr_; }
    BSTR Detach() noexcept { return std::exchange(bstr_, nullptr); }
    /// Returns the address to pass to a function that may replace the text.
    BSTR* Address() noexcept { return &bstr_; }
    String Text() const { return ToString(bstr_); }

 private:
    BSTR bstr_ = nullptr;
};

}  // namespace host::com
