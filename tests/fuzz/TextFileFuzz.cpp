// Whatever bytes a language file has, reading its texts ends, no line is counted twice, every text written in plain
// form is found, and every text that was read says something and comes back from its written form.
#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "kernel_api/dev/TextFile.h"

namespace {

using kernel_api::dev::LineFault;
using kernel_api::dev::TextFile;
using runtime::String;
using namespace std::string_view_literals;

void Require(bool holds) {
    if (!holds) std::abort();
}

/// A lone CR or LF cannot stand in a text that was read.
void CheckWrittenForm(const TextFile& texts) {
    for (const auto& [identifier, text] : texts.All()) {
        Require(identifier.find_first_of(u"\r\n=\0"sv) == String::npos);
        Require(!text.empty());
        const TextFile again("1 = " + runtime::ToUtf8(kernel_api::dev::EscapeText(text)));
        const String* const found = again.Find(u"1");
        Require(found && *found == text && again.SkippedLines() == 0);
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string bytes(reinterpret_cast<const char*>(data), size);
    std::size_t lastLine = 0;
    std::size_t faults = 0;
    const TextFile texts(bytes, [&](std::size_t line, LineFault) {
        Require(line > lastLine);
        lastLine = line;
        ++faults;
    });
    const auto lines = static_cast<std::size_t>(std::ranges::count(bytes, '\n') + std::ranges::count(bytes, '\r')) + 1;
    Require(faults == texts.SkippedLines() && lastLine <= lines);
    Require(texts.Count() + texts.SkippedLines() <= lines);
    texts.Find(runtime::FromUtf8(bytes));
    CheckWrittenForm(texts);

    // A line of its own behind any bytes is read as if it stood alone, unless its identifier was there before.
    const bool isTaken = texts.Find(u"own id") != nullptr;
    const TextFile extended(bytes + "\nown id = v");
    const String* const text = extended.Find(u" own id ");
    Require(text && (isTaken || *text == u"v"));
    Require(extended.Count() == texts.Count() + (isTaken ? 0 : 1));
    Require(extended.SkippedLines() == texts.SkippedLines() + (isTaken ? 1 : 0));
    return 0;
}
