// Fuzzes language files with any bytes. Reading must end. The reader must not count a line twice. It must find an
// appended text, and no text may be empty. A text must not change if it is written and read again.
#include <algorithm>
#include <cstdint>
#include <string>
#include <string_view>

#include "kernel_api/builtin/TextFile.h"
#include "tests/fuzz/Require.h"

namespace {

using kernel_api::builtin::LineFault;
using kernel_api::builtin::TextFile;
using runtime::String;
using tests::Require;
using namespace std::string_view_literals;

/// Checks that each text is unchanged after writing and reading. Also checks that no identifier contains a line break,
/// an equals sign or NUL.
void CheckWrittenForm(const TextFile& texts) {
    for (const auto& [identifier, text] : texts.All()) {
        Require(identifier.find_first_of(u"\r\n=\0"sv) == String::npos,
                "an identifier has no line break, equals sign or NUL");
        Require(!text.empty(), "no text is empty");
        Require(texts.Find(identifier) == text, "each text is found");
        const TextFile again("1 = " + runtime::ToUtf8(kernel_api::builtin::EscapeText(text)));
        Require(again.Find(u"1") == text && again.SkippedLines() == 0, "a written text is read unchanged");
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string bytes(reinterpret_cast<const char*>(data), size);
    std::size_t lastLine = 0;
    std::size_t faults = 0;
    const TextFile texts(bytes, [&](std::size_t line, LineFault) {
        Require(line > lastLine, "faults are in the order of the lines");
        lastLine = line;
        ++faults;
    });
    const auto lines = static_cast<std::size_t>(std::ranges::count(bytes, '\n') + std::ranges::count(bytes, '\r')) + 1;
    Require(faults == texts.SkippedLines() && lastLine <= lines, "each fault is one skipped line of the file");
    Require(texts.Count() + texts.SkippedLines() <= lines, "no line counts twice");
    texts.Find(runtime::FromUtf8(bytes));
    CheckWrittenForm(texts);

    // A new line after any bytes is read as if the file contained only that line, unless the identifier already
    // exists.
    const bool isTaken = texts.Find(u"own id").has_value();
    const TextFile extended(bytes + "\nown id = v");
    const auto text = extended.Find(u" own id ");
    Require(text && (isTaken || *text == u"v"), "an appended line is found");
    Require(extended.Count() == texts.Count() + (isTaken ? 0 : 1), "an appended line adds one text");
    Require(extended.SkippedLines() == texts.SkippedLines() + (isTaken ? 1 : 0),
            "an appended line is skipped if its identifier is taken");
    return 0;
}
