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
    if (field.isUnclosed) {
        return Quoted(field.text) +
               " opens a quote that is never closed: every program that loads the component waits for ever";
    }
    if (IsTooLarge(field.text))
        return Quoted(field.text) + " is a number that is too large: every Load fails with error 6";
    return "";
}

/// Returns `list` without the characters from `begin` to `end` and without one of the commas around them.
String Without(StringView list, std::size_t begin, std::size_t end) {
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
        const auto begin = static_cast<std::size_t>(field.text.data() - list.data());
        check.problem = "field " + std::to_string(check.count) + ", " + problem;
        check.listWithout = Without(list, begin - (field.isUnclosed ? 1 : 0), begin + field.text.size());
        return check;
    }
    return check;
}

}  // namespace tools
