// Conversions between the variants of a late-bound client and the types of our parameters.
#pragma once

#include "host/com/Variant.h"

namespace host::com {

/// Whether the client left the argument out (also through a variable that is itself a left-out argument).
bool IsMissing(const VARIANT& argument);

/// Where the text of an argument stands that is a text and needs no conversion; null for any other.
const BSTR* FindText(const VARIANT& argument);

/// `argument`, which may be by reference, as `type`. Whatever has a sensible value converts: numbers, flags, dates,
/// texts, objects with a default property; Empty is 0 or an empty text, Null is nothing.
/// Answers DISP_E_TYPEMISMATCH, DISP_E_OVERFLOW, DISP_E_BADVARTYPE, E_OUTOFMEMORY, or E_POINTER for a reference to
/// null.
HRESULT Convert(const VARIANT& argument, VARTYPE type, LCID lcid, Variant& converted);

}  // namespace host::com
