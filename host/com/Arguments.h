// Finds the arguments of one late-bound call by the position of their parameter. The client's list has the arguments in
// reverse order, and named arguments come first. Any argument may be missing.
//
// If an argument causes an error, the call returns the argument's index in the client's list with the error.
#pragma once

#include <array>

#include "host/com/Conversion.h"
#include "host/com/Guard.h"

namespace host::com {

class Arguments {
 public:
    static constexpr std::size_t kMaxParameters = 2;

    /// Throws DISP_E_BADPARAMCOUNT if there are too many arguments. Throws DISP_E_PARAMNOTFOUND if no parameter has the
    /// name of an argument, or if two arguments are for one parameter. `badArgument` may be null.
    Arguments(const DISPPARAMS& parameters, std::size_t parameterCount, LCID lcid, UINT* badArgument);

    /// Returns a parameter's text; empty if the argument is missing. The result refers to the client's own variable. If
    /// the client's argument is not a text, the result refers to `converted`.
    StringView OptionalText(std::size_t parameter, Variant& converted) const;
    // Text and Number throw DISP_E_PARAMNOTOPTIONAL if the argument is missing.

    StringView Text(std::size_t parameter, Variant& converted) const;
    std::int16_t Number(std::size_t parameter) const;

 private:
    const VARIANT* Find(std::size_t parameter) const;
    const VARIANT& Require(std::size_t parameter) const;
    [[noreturn]] void Fail(HRESULT result, std::size_t index) const;
    void CheckConversion(HRESULT result, std::size_t parameter) const;

    static constexpr std::size_t kNone = static_cast<std::size_t>(-1);

    const DISPPARAMS& parameters_;
    LCID lcid_;
    UINT* badArgument_;
    std::array<std::size_t, kMaxParameters> indexes_;  ///< each parameter's index in the client's list
};

}  // namespace host::com
