// Converts the variants of late-bound clients to the types of the component's parameters.
#pragma once

#include "host/com/Variant.h"

namespace host::com {

/// Whether the client left the argument out. A variable that is itself a left-out argument counts, too.
bool IsMissing(const VARIANT& argument);

/// The text of an argument that needs no conversion to a text; null for any other argument.
const BSTR* FindText(const VARIANT& argument);

/// Converts `argument`, which may be by reference, to `type`. Numbers, flags, dates, texts and objects with a default
/// property convert. Empty becomes 0 or an empty text. Null and arrays do not convert.
/// Returns DISP_E_TYPEMISMATCH, DISP_E_OVERFLOW, DISP_E_BADVARTYPE, E_OUTOFMEMORY, or E_POINTER for a reference to
/// null.
HRESULT Convert(const VARIANT& argument, VARTYPE type, LCID lcid, Variant& converted);

}  // namespace host::com
