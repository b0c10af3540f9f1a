// The suite's comma-field splitter: what modules write into each other's named strings and commands is a list of
// fields between commas, and a field may stand in double quotes. The result goes into two process-wide arrays.
#pragma once

#include <cstdint>
#include <vector>

#include "runtime/Text.h"
#include "services/ProcessValues.h"

namespace routing {

/// The fields' texts: entry i (from 1) is field i, entry 0 stays empty. No entries before the first split.
inline std::vector<runtime::String>& FieldTexts() {
    return services::Values().fieldTexts;
}
/// Entry 0 is the number of fields, entry i the number that field i's text starts with.
inline std::vector<double>& FieldValues() {
    return services::Values().fieldValues;
}

/// Splits `text` into FieldTexts and FieldValues, whose previous contents are gone. What lies between a closing quote
/// and the next comma belongs to the field, but then the character before the comma does not. The last character
/// of the text neither opens a quoted field nor ends one: `"A",` is the one field `A"`.
/// Never returns for a text whose quoted field is not closed. Error 6, which names the field, for a number that
/// is too large: the count is then 0, and the arrays end with that field.
void SplitFields(runtime::StringView text);

/// The number that `text` starts with, its first comma read as a period; 0 for none. Error 6 when it is too large.
double FieldToNumber(runtime::StringView text);

/// Entry `index` of the arrays. Error 9 when there is none.
const runtime::String& FieldText(std::int32_t index);
double FieldValue(std::int32_t index);

}  // namespace routing
