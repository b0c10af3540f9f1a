// Fuzzes the built-in field parser. The parser's fields must equal the slow splitter's fields. The field after an
// unclosed quote must contain the rest of the text. The caller may read fields in any order. If the slow splitter
// fails, because a number is too large, the fields are not compared.
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

/// Compares all fields of `text` with the slow splitter's fields. Returns the number of fields. After an unclosed
/// quote, the rest of the text is the last field.
std::size_t CheckFields(kernel_api::FieldParser& parser, const String& text) {
    const tests::SlowFields slow = tests::SlowFieldSplitter::Split(text);
    std::size_t begin = 0;
    const std::size_t closedFields = slow.error == 0 ? slow.texts.size() - 1 : 0;
    for (std::size_t i = 1; i <= closedFields; ++i) {
        const runtime::StringView field = parser.Field(static_cast<std::int32_t>(i));
        Require(field == slow.texts[i], "the field equals the slow splitter's field");
        begin = text.find(field, begin);
        Require(begin != String::npos, "each field occurs in the text after the previous one");
        begin += field.size();
    }
    if (!slow.isEndless) return closedFields;
    const runtime::StringView rest = parser.Field(static_cast<std::int32_t>(closedFields + 1));
    Require(text.ends_with(u'"' + String(rest)), "the field after an unclosed quote is the rest of the text");
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
    Require(parser->Field(static_cast<std::int32_t>(count + 1)).empty() || count == 0,
            "there is no field after the last field");
    Require(parser->Field(early) == asked, "a second read returns the same field");
    return 0;
}
