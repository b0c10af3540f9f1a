// Splits lists of comma fields by the suite's rules. Modules write lists of comma fields into kernel strings and
// commands. A field may be in double quotes. The splitter stores its result in two process-wide arrays.
#pragma once

#include <cstdint>
#include <vector>

#include "runtime/Text.h"
#include "services/ProcessValues.h"

namespace routing {

/// The texts of the fields. Entry i is field i, counted from 1. Entry 0 is empty. There are no entries before the first
/// split.
inline std::vector<runtime::String>& FieldTexts() {
    return services::Values().fieldTexts;
}
/// Entry 0 is the number of fields. Entry i is the number that FieldToNumber reads from field i.
inline std::vector<double>& FieldValues() {
    return services::Values().fieldValues;
}

/// Splits `text` by the rules of kernel_api::CommaFields and replaces the contents of FieldTexts and FieldValues. For
/// example, `"A",` is the single field `A"`. Never returns if a quoted field is not closed. Raises error 6 if a
/// field's number is too large. The error names the field. The arrays then end with that field, and entry 0 of
/// FieldValues is 0.
void SplitFields(runtime::StringView text);

/// Returns the number at the start of `text`; 0 if there is no number. Reads the first comma as a period. Error 6 if
/// the number is too large.
double FieldToNumber(runtime::StringView text);

/// Returns entry `index` of the arrays. Error 9 if the entry does not exist.
const runtime::String& FieldText(std::int32_t index);
double FieldValue(std::int32_t index);

}  // namespace routing
