#include "trace/TracedDialogs.h"

#include <utility>

namespace trace {
namespace {

/// Writes a line when the message is shown and a line with its answer.
template <typename Show>
std::int32_t WriteMessage(Output& output, StringView box, StringView prompt, std::int32_t flags, StringView title,
                          Show&& show) {
    Line("message").Text("box", box).Text("prompt", prompt).Number("flags", flags).Text("title", title).WriteTo(output);
    return WriteCall(output, Line("message answered"), show,
                     [](Line& line, std::int32_t answer) { line.Number("answer", answer); });
}

/// Does the same as WriteCall for a call without a result.
template <typename Call>
void WriteDone(Output& output, Line line, Call&& call) {
    WriteCall(
        output, std::move(line),
        [&call] {
            call();
            return true;
        },
        [](Line&, bool) {});
}

}  // namespace

std::int32_t TracedMessageBox::Show(StringView prompt, std::int32_t flags, StringView title,
                                    const runtime::MessageHelp& help) {
    return WriteMessage(output_, u"system", prompt, flags, title,
                        [&] { return box_.Show(prompt, flags, title, help); });
}

void TracedHelp::OpenContents(runtime::NativeHandle owner, StringView file) {
    Line line("help opened");
    line.Text("file", file);
    WriteDone(output_, std::move(line), [&] { help_.OpenContents(owner, file); });
}

void TracedHelp::CloseAll(runtime::NativeHandle owner) {
    WriteDone(output_, Line("help closed"), [&] { help_.CloseAll(owner); });
}

services::SuiteMessageBox Traced(Output& output, const services::SuiteMessageBox& box) {
    return [&output, &box](StringView prompt, std::int32_t flags, StringView title) {
        return WriteMessage(output, u"suite", prompt, flags, title, [&] { return box(prompt, flags, title); });
    };
}

services::SuiteQuery Traced(Output& output, const services::SuiteQuery& query) {
    return [&output, &query](const String& title, const String& prompt, std::vector<String>& values, std::int32_t kind,
                             std::int32_t& index, bool showButton, const String& buttonCaption) {
        Line("question").Text("prompt", prompt).Number("kind", kind).Text("title", title).WriteTo(output);
        return WriteCall(
            output, Line("question answered"),
            [&] { return query(title, prompt, values, kind, index, showButton, buttonCaption); },
            [&index](Line& line, const String& text) { line.Text("answer", text).Number("index", index); });
    };
}

}  // namespace trace
