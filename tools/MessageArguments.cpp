#include "tools/MessageArguments.h"

#include "tools/Display.h"
#include "tools/Usage.h"

namespace tools {

namespace {

constexpr StringView kWrittenBreak = u"\\n";
constexpr StringView kLineBreak = u"\r\n";

/// Parses the code of a button of the message box.
std::int32_t ReadAnswer(StringView text) {
    for (const StringView code : {u"6", u"7", u"8", u"2"}) {
        if (text == code) return code.front() - u'0';
    }
    throw UsageError("--default must be 6, 7, 8 or 2, not " + Quoted(text));
}

void TakeOption(MessageArguments& message, const Arguments& arguments, std::size_t place) {
    const String& option = arguments[place];
    if (option == u"--flags") {
        message.flags = ReadNumber(ValueOf(arguments, place), "--flags");
    } else if (option == u"--title") {
        message.title = ValueOf(arguments, place);
    } else if (option == u"--language") {
        message.languageFolder = ValueOf(arguments, place);
    } else if (option == u"--timeout") {
        message.timeout = ReadTimeout(ValueOf(arguments, place));
    } else if (option == u"--default") {
        message.defaultAnswer = ReadAnswer(ValueOf(arguments, place));
    } else {
        throw UnknownOption(option);
    }
}

}  // namespace

std::int32_t ReadTimeout(StringView text) {
    constexpr std::int64_t kDay = 86'400;
    return static_cast<std::int32_t>(ReadWhole(text, "--timeout", 1, kDay));
}

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
    if (message.defaultAnswer && !message.timeout) throw UsageError("--default needs --timeout");
    return message;
}

}  // namespace tools
