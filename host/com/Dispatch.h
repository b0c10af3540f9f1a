// Late binding to the service object. It is our own, not the type library's: with three members it is small, and a
// call through the type library with a missing by-reference string hands the method a pointer to nothing.
#pragma once

#include "host/ServiceObject.h"
#include "host/com/ComHeaders.h"

namespace host::com {

/// One call as a client asks for it.
struct Call {
    DISPID member;
    WORD flags;
    LCID lcid;
    const DISPPARAMS& parameters;
    VARIANT* result;    ///< may be null
    UINT* badArgument;  ///< may be null
};

/// Carries out `call`. Throws a ComError for a call that is not well made, and what the service object throws.
HRESULT InvokeMember(ServiceObject& service, const Call& call);

/// The identifiers of a member (first name) and of its parameters (the names after it); case does not matter.
/// DISP_E_UNKNOWNNAME when any is unknown, whose identifier is then DISPID_UNKNOWN.
HRESULT FindMemberIds(REFIID iid, LPOLESTR* names, UINT count, DISPID* ids);

}  // namespace host::com
