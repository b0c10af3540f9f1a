#include "tools/ClosedQuotes.h"

#include <stdexcept>
#include <string>

#include "kernel_api/CommaFields.h"
#include "tools/Display.h"

namespace tools {

void RequireClosedQuotes(runtime::StringView text) {
    int number = 0;
    for (kernel_api::CommaFields fields(text); !fields.AtEnd();) {
        const kernel_api::CommaField field = fields.Take();
        ++number;
        if (!field.isUnclosed) continue;
        throw std::runtime_error("field " + std::to_string(number) + ", " + Quoted(runtime::String(field.text)) +
                                 ", opens with a quote that is not closed; close it");
    }
}

}  // namespace tools
