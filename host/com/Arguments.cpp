#include "host/com/Arguments.h"

namespace host::com {

Arguments::Arguments(const DISPPARAMS& parameters, std::size_t parameterCount, LCID lcid, UINT* badArgument)
    : parameters_(parameters), lcid_(lcid), badArgument_(badArgument) {
    indexes_.fill(kNone);
    if (parameters.cArgs > parameterCount) throw ComError(DISP_E_BADPARAMCOUNT);
    if (parameters.cNamedArgs > parameters.cArgs) throw ComError(E_INVALIDARG);
    if (parameters.cArgs > 0 && parameters.rgvarg == nullptr) throw ComError(E_INVALIDARG);
    if (parameters.cNamedArgs > 0 && parameters.rgdispidNamedArgs == nullptr) throw ComError(E_INVALIDARG);

    const UINT positional = parameters.cArgs - parameters.cNamedArgs;
    for (UINT i = 0; i < positional; ++i) indexes_[i] = parameters.cArgs - 1 - i;
    for (UINT i = 0; i < parameters.cNamedArgs; ++i) {
        const DISPID name = parameters.rgdispidNamedArgs[i];
        const bool isParameter = name >= 0 && static_cast<std::size_t>(name) < parameterCount;
        if (!isParameter || indexes_[static_cast<std::size_t>(name)] != kNone) Fail(DISP_E_PARAMNOTFOUND, i);
        indexes_[static_cast<std::size_t>(name)] = i;
    }
}

StringView Arguments::OptionalText(std::size_t parameter, Variant& converted) const {
    return Find(parameter) == nullptr ? StringView() : Text(parameter, converted);
}

StringView Arguments::Text(std::size_t parameter, Variant& converted) const {
    const VARIANT& argument = Require(parameter);
    if (const BSTR* const text = FindText(argument)) return ViewOf(*text);
    CheckConversion(Convert(argument, VT_BSTR, lcid_, converted), parameter);
    return ViewOf(converted.Get().bstrVal);
}

std::int16_t Arguments::Number(std::size_t parameter) const {
    Variant number;
    CheckConversion(Convert(Require(parameter), VT_I2, lcid_, number), parameter);
    return number.Get().iVal;
}

const VARIANT* Arguments::Find(std::size_t parameter) const {
    const std::size_t index = indexes_[parameter];
    if (index == kNone || IsMissing(parameters_.rgvarg[index])) return nullptr;
    return &parameters_.rgvarg[index];
}

const VARIANT& Arguments::Require(std::size_t parameter) const {
    if (const VARIANT* const argument = Find(parameter)) return *argument;
    if (indexes_[parameter] == kNone) throw ComError(DISP_E_PARAMNOTOPTIONAL);
    Fail(DISP_E_PARAMNOTOPTIONAL, indexes_[parameter]);
}

void Arguments::Fail(HRESULT result, std::size_t index) const {
    if (badArgument_ != nullptr) *badArgument_ = static_cast<UINT>(index);
    throw ComError(result);
}

void Arguments::CheckConversion(HRESULT result, std::size_t parameter) const {
    if (FAILED(result)) Fail(result, indexes_[parameter]);
}

}  // namespace host::com
