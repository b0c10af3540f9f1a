// Fuzzes the field splitter. A list that was built from fields must be split into these fields. For any text, the
// result must equal the slow splitter's result. Texts for which splitting never ends are excluded.
#include <fuzzer/FuzzedDataProvider.h>

#include <algorithm>
#include <bit>

#include "routing/FieldSplitter.h"
#include "runtime/Error.h"
#include "tests/fuzz/Require.h"
#include "tests/support/SlowFieldSplitter.h"

namespace {

using routing::FieldTexts;
using routing::FieldValues;
using runtime::String;
using tests::Require;

char16_t TakeCharacter(FuzzedDataProvider& data) {
    // Most characters have a meaning, because the fuzzer then reaches more of the rules.
    static constexpr char16_t kCommon[] = {u'"', u',', u'"', u',', u' ', u'A', u'1', u'E', u'-', u'.', u'&', u'H'};
    if (data.ConsumeIntegralInRange(0, 15) > 0) return data.PickValueInArray(kCommon);
    return data.ConsumeIntegral<char16_t>();
}

String TakeText(FuzzedDataProvider& data, std::size_t longest) {
    String text;
    for (std::size_t left = data.ConsumeIntegralInRange<std::size_t>(0, longest); left > 0; --left) {
        text += TakeCharacter(data);
    }
    return text;
}

bool AreSameBits(const std::vector<double>& a, const std::vector<double>& b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(), [](double x, double y) {
        return std::bit_cast<std::uint64_t>(x) == std::bit_cast<std::uint64_t>(y);
    });
}

/// Returns the number of the error that ended the split, or 0.
std::int32_t Split(const String& text) {
    try {
        routing::SplitFields(text);
    } catch (const runtime::Error& error) {
        return error.Number();
    }
    return 0;
}

void CheckAnyText(const String& text) {
    const tests::SlowFields slow = tests::SlowFieldSplitter::Split(text);
    if (slow.error == 0) {
        Require(slow.isEndless == tests::NeverReturns(text), "splitting is endless exactly if NeverReturns is true");
    }
    if (slow.isEndless) return;
    Require(Split(text) == slow.error, "the error equals the slow splitter's error");
    Require(FieldTexts() == slow.texts, "the texts equal the slow splitter's texts");
    Require(AreSameBits(FieldValues(), slow.values), "the values equal the slow splitter's values");
    Require(FieldTexts().size() == FieldValues().size(), "the numbers of texts and values are equal");
    Require(FieldTexts().front().empty(), "entry 0 of the texts is empty");
    if (slow.error != 0) return;
    const auto count = FieldTexts().size() - 1;
    const auto commas = static_cast<std::size_t>(std::count(text.begin(), text.end(), u','));
    Require(count >= 1 && count <= commas + 1, "there is a field, and at most one field more than commas");
    Require(FieldValues().front() == static_cast<double>(count), "entry 0 of the values is the count");
    std::size_t length = 0;
    for (const String& field : FieldTexts()) length += field.size();
    Require(length + count - 1 <= text.size(), "the fields and the commas between them fit into the text");
}

void CheckWellFormedList(FuzzedDataProvider& data) {
    String list;
    std::vector<String> fields(1);
    bool isQuoted = false;
    for (auto left = data.ConsumeIntegralInRange(1, 40); left > 0; --left) {
        String field = TakeText(data, 12);
        isQuoted = data.ConsumeBool();
        std::erase(field, isQuoted ? u'"' : u',');
        if (!isQuoted && field.starts_with(u'"')) field.insert(0, 1, u' ');
        if (fields.size() > 1) list += u',';
        list += isQuoted ? u'"' + field + u'"' : field;
        fields.push_back(field);
    }
    // The splitter ignores a final comma after a quoted field. So the last field of a list must not be empty.
    if (!isQuoted && fields.back().empty()) {
        list += u'Z';
        fields.back() = u"Z";
    }
    CheckAnyText(list);
    if (Split(list) != 0) return;
    Require(FieldTexts() == fields, "a well-formed list is split into its fields");
    Require(FieldValues().front() == static_cast<double>(fields.size() - 1),
            "entry 0 of the values is the number of fields");
    for (std::size_t i = 1; i < fields.size(); ++i) {
        Require(FieldValues()[i] == routing::FieldToNumber(fields[i]), "each value is the number of its field");
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    static services::ProcessValues values;
    services::UseValues(&values);
    FuzzedDataProvider data(bytes, size);
    if (data.ConsumeBool()) {
        CheckWellFormedList(data);
    } else {
        CheckAnyText(TakeText(data, 400));
    }
    return 0;
}
