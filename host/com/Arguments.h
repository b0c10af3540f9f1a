// The arguments of one late-bound call, by the position of the parameter they are for. They come in reverse, the
// named ones first; any may be missing.
//
// Where an argument is at fault, its index in the client's list is answered along with the error.
#pragma once

#include <array>

#include "host/com/Conversion.h"
#include "host/com/Guard.h"

namespace host::com {

class Arguments {
 public:
    static constexpr std::size_t kMaxParameters = 2;

    /// Throws DISP_E_BADPARAMCOUNT for too many arguments, DISP_E_PARAMNOTFOUND for a name that is no parameter's or
    /// whose parameter has its argument already. `badArgument` may be null.
    Arguments(const DISPPARAMS& parameters, std::size_t parameterCount, LCID lcid, UINT* badArgument);

    /// A parameter's text; an empty one for an optional parameter left out. It stands in the client's own variable, or
    /// in `converted` when the client gave something else.
    StringView OptionalText(std::size_t parameter, Variant& converted) const;
    /// These throw DISP_E_PARAMNOTOPTIONAL when left out.
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
    std::array<std::size_t, kMaxParameters> indexes_;  ///< of the parameters' arguments in the client's list
};

}  // namespace host::com
