#include "tools/QueryArguments.h"

#include <utility>

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
    } else {
        throw UnknownOption(option);
    }
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
    return query;
}

}  // namespace tools
