// Converts the variants of late-bound clients to the types of the component's parameters.
#pragma once

#include "host/com/Variant.h"

namespace host::com {

/// True if the client left the argument out. The argument then contains the error code DISP_E_PARAMNOTFOUND. Also true
/// for a variable that contains this code.
bool IsMissing(const VARIANT& argument);

/// Returns the string in an argument that is a string or a reference to a string; null for any other argument.
const BSTR* FindText(const VARIANT& argument);

/// Converts `argument` to `type`. `argument` may be a reference. Converts numbers, Booleans, dates, strings, and
/// objects with a default property. Empty becomes 0 or an empty text. Refuses Null and arrays.
/// On failure, returns DISP_E_TYPEMISMATCH, DISP_E_OVERFLOW, DISP_E_BADVARTYPE or E_OUTOFMEMORY. Returns E_POINTER for
/// a null reference.
HRESULT Convert(const VARIANT& argument, VARTYPE type, LCID lcid, Variant& converted);

}  // namespace host::com
