// Whatever bytes a language file has, reading its texts ends, no line is counted twice, and every text written in plain
// form is found.
#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <string>

#include "kernel_api/dev/TextFile.h"

namespace {

void Require(bool holds) {
    if (!holds) std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using kernel_api::dev::TextFile;
    std::string bytes(reinterpret_cast<const char*>(data), size);
    const TextFile texts(bytes);
    const auto lines = static_cast<std::size_t>(std::ranges::count(bytes, '\n')) + 1;
    Require(texts.Count() + texts.SkippedLines() <= lines);
    texts.Find(runtime::FromUtf8(bytes));

    // A line of its own behind any bytes is read as if it stood alone, unless its identifier was there before.
    const bool isTaken = texts.Find(u"own id") != nullptr;
    const TextFile extended(bytes + "\nown id = v");
    const runtime::String* const text = extended.Find(u" own id ");
    Require(text && (isTaken || *text == u"v"));
    Require(extended.Count() == texts.Count() + (isTaken ? 0 : 1));
    Require(extended.SkippedLines() == texts.SkippedLines() + (isTaken ? 1 : 0));
    return 0;
}
