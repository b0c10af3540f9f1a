#include "tools/QueryArguments.h"

#include <algorithm>
#include <utility>

#include "dialogs/Qmxquery.h"
#include "tools/Display.h"
#include "tools/MessageArguments.h"
#include "tools/Usage.h"

namespace tools {

namespace {

void TakeOption(QueryArguments& query, bool& hasKind, const Arguments& arguments, std::size_t place) {
    const String& option = arguments[place];
    if (option == u"--kind") {
        query.kind = ReadNumber(ValueOf(arguments, place), "--kind");
        hasKind = true;
    } else if (option == u"--title") {
        query.title = WithLineBreaks(ValueOf(arguments, place));
    } else if (option == u"--prompt") {
        query.prompt = WithLineBreaks(ValueOf(arguments, place));
    } else if (option == u"--index") {
        query.index = ReadNumber(ValueOf(arguments, place), "--index");
    } else if (option == u"--button") {
        query.buttonCaption = WithLineBreaks(ValueOf(arguments, place));
    } else if (option == u"--language") {
        query.languageFolder = ValueOf(arguments, place);
    } else if (option == u"--timeout") {
        query.timeout = ReadTimeout(ValueOf(arguments, place));
    } else if (option == u"--default") {
        query.defaultText = WithLineBreaks(ValueOf(arguments, place));
    } else {
        throw UnknownOption(option);
    }
}

/// Returns the index that the dialog would return for the default answer.
std::int32_t IndexOfDefault(const QueryArguments& query) {
    if (query.kind != dialogs::kDropDown && query.kind != dialogs::kList) return dialogs::Qmxquery::kNothingChosen;
    const auto item = std::find(query.values.begin() + 1, query.values.end(), *query.defaultText);
    if (item == query.values.end()) {
        throw UsageError("--default must be one of the items, not " + Quoted(*query.defaultText));
    }
    return static_cast<std::int32_t>(item - query.values.begin());
}

}  // namespace

QueryArguments ReadQueryArguments(const Arguments& arguments) {
    QueryArguments query;
    bool hasKind = false;
    std::size_t next = 0;
    for (; next < arguments.size() && arguments[next].starts_with(kEndOfOptions); next += 2) {
        if (arguments[next] == kEndOfOptions) {
            ++next;
            break;
        }
        TakeOption(query, hasKind, arguments, next);
    }
    if (!hasKind) throw Missing("--kind");
    if (next == arguments.size()) throw Missing("VALUE0");
    for (; next < arguments.size(); ++next) query.values.push_back(WithLineBreaks(arguments[next]));
    if (query.defaultText) {
        if (!query.timeout) throw UsageError("--default needs --timeout");
        query.defaultIndex = IndexOfDefault(query);
    }
    return query;
}

}  // namespace tools
