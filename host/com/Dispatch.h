// Late binding to the service object. It does not use the type library's Invoke, because that passes no valid pointer
// to the method if a by-reference string is missing.
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

/// Carries out `call`. Throws ComError for an invalid call, and the errors of the service object.
HRESULT InvokeMember(ServiceObject& service, const Call& call);

/// The identifiers of a member (the first name) and of its parameters (the other names). Letter case is ignored. An
/// unknown name gets DISPID_UNKNOWN, and the result is then DISP_E_UNKNOWNNAME.
HRESULT FindMemberIds(REFIID iid, LPOLESTR* names, UINT count, DISPID* ids);

}  // namespace host::com
