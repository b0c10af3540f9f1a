// Implements late binding to the service object. It does not use the type library's Invoke, because that function
// passes an invalid pointer to the method if a by-reference string is missing.
#pragma once

#include "host/ServiceObject.h"
#include "host/com/ComHeaders.h"

namespace host::com {

struct Call {
    DISPID member;
    WORD flags;
    LCID lcid;
    const DISPPARAMS& parameters;
    VARIANT* result;    ///< may be null
    UINT* badArgument;  ///< may be null
};

/// Carries out `call`. Returns DISP_E_MEMBERNOTFOUND for an unknown member. Throws ComError for any other invalid call.
/// Errors of the service object reach the caller.
HRESULT InvokeMember(ServiceObject& service, const Call& call);

/// Returns the identifiers of a member (the first name) and of its parameters (the other names). Ignores letter case.
/// If a name is unknown, its identifier is DISPID_UNKNOWN and the result is DISP_E_UNKNOWNNAME.
HRESULT FindMemberIds(REFIID iid, LPOLESTR* names, UINT count, DISPID* ids);

}  // namespace host::com
