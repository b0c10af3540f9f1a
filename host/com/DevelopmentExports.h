// An entry of the component's DLL for the tool and for tests: what goes on inside and no client is told.
#pragma once

#include "host/com/ComHeaders.h"

/// The value called `name` as it is now; the caller frees it. Null for a name that there is not, for "Caption" while
/// the main form is not loaded, and when there is no memory. For the thread that the main form lives on.
///
///     CurrentDesignName   the design's name since the last SAVE or OPEN
///     LanguagePath        the language folder since the last LZ
///     Caption             the main form's caption
extern "C" __declspec(dllexport) BSTR K4TDev_Value(const wchar_t* name) noexcept;
