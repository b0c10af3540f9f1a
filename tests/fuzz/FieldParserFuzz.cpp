// The built-in field parser: the fields of any text equal those of the slow splitter, a quote that is never closed
// takes the rest, and fields may be read in any order.
#include <fuzzer/FuzzedDataProvider.h>

#include "kernel_api/builtin/BuiltInSplitter.h"
#include "tests/fuzz/Require.h"
#include "tests/support/SlowFieldSplitter.h"

namespace {

using runtime::String;
using tests::Require;

String TakeText(FuzzedDataProvider& data) {
    static constexpr char16_t kCommon[] = {u'"', u',', u'"', u',', u' ', u'A', u'l', u'\0'};
    String text;
    for (std::size_t left = data.ConsumeIntegralInRange<std::size_t>(0, 200); left > 0; --left) {
        const bool isCommon = data.ConsumeIntegralInRange(0, 15) > 0;
        text += isCommon ? data.PickValueInArray(kCommon) : data.ConsumeIntegral<char16_t>();
    }
    return text;
}

/// Checks all fields of `text` against the slow splitter and returns their number. The rest after an unclosed quote is
/// the last field.
std::size_t CheckFields(kernel_api::FieldParser& parser, const String& text) {
    const tests::SlowFields slow = tests::SlowFieldSplitter::Split(text);
    std::size_t begin = 0;
    const std::size_t closedFields = slow.error == 0 ? slow.texts.size() - 1 : 0;
    for (std::size_t i = 1; i <= closedFields; ++i) {
        const runtime::StringView field = parser.Field(static_cast<std::int32_t>(i));
        Require(field == slow.texts[i], "same fields as the slow splitter");
        begin = text.find(field, begin);
        Require(begin != String::npos, "each field occurs in the text after the previous one");
        begin += field.size();
    }
    if (!slow.isEndless) return closedFields;
    const runtime::StringView rest = parser.Field(static_cast<std::int32_t>(closedFields + 1));
    Require(text.ends_with(u'"' + String(rest)), "an unclosed quote contains the rest of the text");
    Require(rest.find(u'"') == String::npos, "the rest contains no quote");
    return closedFields + 1;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    FuzzedDataProvider data(bytes, size);
    static const auto parser = kernel_api::builtin::BuiltInSplitter().MakeFieldParser();
    const auto early = data.ConsumeIntegral<std::int32_t>();
    const String text = TakeText(data);
    parser->SetText(text);
    const String asked(parser->Field(early));
    const std::size_t count = CheckFields(*parser, text);
    Require(parser->Field(static_cast<std::int32_t>(count + 1)).empty() || count == 0, "no field after the last one");
    Require(parser->Field(early) == asked, "a second read returns the same field");
    return 0;
}
