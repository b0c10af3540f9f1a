// The suite's comma-field splitter. Modules write lists of comma fields into kernel strings and commands; a field may
// be in double quotes. The splitter stores its result in two process-wide arrays.
#pragma once

#include <cstdint>
#include <vector>

#include "runtime/Text.h"
#include "services/ProcessValues.h"

namespace routing {

/// The fields' texts: entry i is field i, counted from 1; entry 0 is empty. No entries before the first split.
inline std::vector<runtime::String>& FieldTexts() {
    return services::Values().fieldTexts;
}
/// Entry 0 is the number of fields. Entry i is the number at the start of field i, as FieldToNumber reads it.
inline std::vector<double>& FieldValues() {
    return services::Values().fieldValues;
}

/// Splits `text` by the rules of kernel_api::CommaFields and replaces the contents of FieldTexts and FieldValues. For
/// example, `"A",` is the single field `A"`. Never returns if a quoted field is not closed. Error 6, which names the
/// field, for a number that is too large; the number of fields is then 0, and the arrays end with that field.
void SplitFields(runtime::StringView text);

/// The number at the start of `text`, with its first comma read as a period; 0 if there is none. Error 6 if the number
/// is too large.
double FieldToNumber(runtime::StringView text);

/// Entry `index` of the arrays. Error 9 if there is no such entry.
const runtime::String& FieldText(std::int32_t index);
double FieldValue(std::int32_t index);

}  // namespace routing
