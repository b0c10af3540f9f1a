// Owns the contents of a VARIANT.
#pragma once

#include <cstdint>

#include "host/com/Bstr.h"

namespace host::com {

class Variant {
 public:
    Variant() noexcept { VariantInit(&value_); }
    explicit Variant(std::int16_t number) noexcept : Variant() {
        value_.vt = VT_I2;
        value_.iVal = number;
    }
    explicit Variant(bool flag) noexcept : Variant() {
        value_.vt = VT_BOOL;
        value_.boolVal = flag ? VARIANT_TRUE : VARIANT_FALSE;
    }
    explicit Variant(StringView text) : Variant() {
        value_.bstrVal = Bstr(text).Detach();
        value_.vt = VT_BSTR;
    }
    Variant(Variant&& other) noexcept : value_(other.Detach()) {}
    Variant& operator=(Variant&&) = delete;
    ~Variant() { VariantClear(&value_); }

    VARIANT* Address() noexcept { return &value_; }
    const VARIANT& Get() const noexcept { return value_; }
    /// Returns the contents and leaves this object empty.
    VARIANT Detach() noexcept {
        const VARIANT contents = value_;
        VariantInit(&value_);
        return contents;
    }

 private:
    VARIANT value_;
};

}  // namespace host::com
