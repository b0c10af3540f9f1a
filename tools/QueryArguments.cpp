#include "tools/QueryArguments.h"

#include <utility>

#include "tools/Display.h"
#include "tools/MessageArguments.h"

namespace tools {

namespace {

constexpr StringView kOptionMark = u"--";

void TakeOption(QueryArguments& query, bool& hasKind, StringView option, const String& value) {
    if (option == u"--kind") {
        query.kind = ReadNumber(value, "--kind");
        hasKind = true;
    } else if (option == u"--title") {
        query.title = WithLineBreaks(value);
    } else if (option == u"--prompt") {
        query.prompt = WithLineBreaks(value);
    } else if (option == u"--index") {
        query.index = ReadNumber(value, "--index");
    } else if (option == u"--button") {
        query.buttonCaption = WithLineBreaks(value);
    } else if (option == u"--language") {
        query.languageFolder = value;
    } else {
        throw UsageError("there is no option '" + Display(option) + "'");
    }
}

}  // namespace

QueryArguments ReadQueryArguments(const Arguments& arguments) {
    QueryArguments query;
    bool hasKind = false;
    std::size_t next = 0;
    for (; next < arguments.size() && arguments[next].starts_with(kOptionMark); next += 2) {
        if (arguments[next] == kOptionMark) {
            ++next;
            break;
        }
        if (next + 1 == arguments.size()) throw UsageError("'" + Display(arguments[next]) + "' takes a value");
        TakeOption(query, hasKind, arguments[next], arguments[next + 1]);
    }
    if (!hasKind) throw UsageError("--kind is missing");
    if (next == arguments.size()) throw UsageError("VALUE0 is missing");
    for (; next < arguments.size(); ++next) query.values.push_back(WithLineBreaks(arguments[next]));
    return query;
}

}  // namespace tools
