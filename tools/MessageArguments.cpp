#include "tools/MessageArguments.h"

#include "tools/Usage.h"

namespace tools {

namespace {

constexpr StringView kWrittenBreak = u"\\n";
constexpr StringView kLineBreak = u"\r\n";

void TakeOption(MessageArguments& message, const Arguments& arguments, std::size_t place) {
    const String& option = arguments[place];
    if (option == u"--flags") {
        message.flags = ReadNumber(ValueOf(arguments, place), "--flags");
    } else if (option == u"--title") {
        message.title = ValueOf(arguments, place);
    } else if (option == u"--language") {
        message.languageFolder = ValueOf(arguments, place);
    } else {
        throw UnknownOption(option);
    }
}

}  // namespace

String WithLineBreaks(StringView written) {
    String text;
    for (;;) {
        const std::size_t position = written.find(kWrittenBreak);
        text += written.substr(0, position);
        if (position == StringView::npos) return text;
        text += kLineBreak;
        written.remove_prefix(position + kWrittenBreak.size());
    }
}

MessageArguments ReadMessageArguments(const Arguments& arguments) {
    MessageArguments message;
    std::size_t next = 0;
    for (; next < arguments.size() && arguments[next].starts_with(kEndOfOptions); next += 2) {
        if (arguments[next] == kEndOfOptions) {
            ++next;
            break;
        }
        TakeOption(message, arguments, next);
    }
    if (next == arguments.size()) throw Missing("PROMPT");
    RequireAtMost(next + 1, arguments);
    message.prompt = WithLineBreaks(arguments[next]);
    return message;
}

}  // namespace tools
