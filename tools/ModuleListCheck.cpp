#include "tools/ModuleListCheck.h"

#include <vector>

#include "kernel_api/CommaFields.h"
#include "routing/FieldSplitter.h"
#include "runtime/Error.h"
#include "services/ProcessValues.h"
#include "tools/Display.h"

namespace tools {

namespace {

using runtime::String;
using runtime::StringView;

bool IsTooLarge(StringView field) {
    try {
        routing::FieldToNumber(field);
        return false;
    } catch (const runtime::Error&) {
        return true;
    }
}

std::string ProblemOf(const kernel_api::CommaField& field) {
    if (field.isUnclosed)
        return Quoted(field.text) + " opens a quote that is never closed: the load of the main form never ends";
    if (IsTooLarge(field.text)) {
        return Quoted(field.text) +
               " is a number that is too large: 'Load' returns True, but no form is loaded and SHUTDOWN is raised";
    }
    return "";
}

/// Returns `list` without `field`, which is a part of `list`. Also removes the quotes of a quoted field and one comma:
/// the comma after the field, or the comma before the last field.
String Without(StringView list, const kernel_api::CommaField& field) {
    auto begin = static_cast<std::size_t>(field.text.data() - list.data());
    std::size_t end = begin + field.text.size();
    const bool isQuoted = begin > 0 && list[begin - 1] == u'"';
    if (isQuoted) {
        --begin;
        if (!field.isUnclosed) ++end;
    }
    String rest(list.substr(0, begin));
    if (end < list.size()) return rest.append(list.substr(end + 1));
    if (rest.ends_with(u',')) rest.pop_back();
    return rest;
}

}  // namespace

ModuleListCheck CheckModuleList(StringView list) {
    ModuleListCheck check;
    if (list.empty()) return check;
    for (kernel_api::CommaFields fields(list); !fields.AtEnd();) {
        const kernel_api::CommaField field = fields.Take();
        ++check.count;
        if (field.text == services::kOwnModuleName) check.ownPlace = check.count;
        const std::string problem = ProblemOf(field);
        if (problem.empty()) continue;
        check.problem = "field " + std::to_string(check.count) + ", " + problem;
        check.listWithout = Without(list, field);
        return check;
    }
    return check;
}

}  // namespace tools
