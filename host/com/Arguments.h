// The arguments of one late-bound call, by the position of their parameter. The client's list has them in reverse
// order, the named ones first. Any argument may be missing.
//
// If an argument causes an error, its index in the client's list is returned with the error.
#pragma once

#include <array>

#include "host/com/Conversion.h"
#include "host/com/Guard.h"

namespace host::com {

class Arguments {
 public:
    static constexpr std::size_t kMaxParameters = 2;

    /// Throws DISP_E_BADPARAMCOUNT for too many arguments. Throws DISP_E_PARAMNOTFOUND for a name that no parameter
    /// has, or whose parameter already has an argument. `badArgument` may be null.
    Arguments(const DISPPARAMS& parameters, std::size_t parameterCount, LCID lcid, UINT* badArgument);

    /// A parameter's text; empty if the parameter was left out. The result refers to the client's own variable, or to
    /// `converted` if the client's argument is not a text.
    StringView OptionalText(std::size_t parameter, Variant& converted) const;
    // Text and Number throw DISP_E_PARAMNOTOPTIONAL if the parameter was left out.

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
    std::array<std::size_t, kMaxParameters> indexes_;  ///< by parameter: the argument's index in the client's list
};

}  // namespace host::com
