// Compares the field splitter with Boost.Tokenizer's escaped-list separator. Both produce each field's text, and the
// text's value as a number.
#include <boost/tokenizer.hpp>

#include "routing/FieldSplitter.h"
#include "tests/bench/Row.h"

namespace {

using runtime::String;

/// Returns a list of fields like "NAME17". Every third field is a number. If `hasQuotes` is true, every second field
/// contains a comma and is quoted.
String MakeList(int fields, bool hasQuotes) {
    String list;
    for (int i = 0; i < fields; ++i) {
        if (i > 0) list += u',';
        const String number = runtime::FromAscii(std::to_string(i % 1000));
        const String text = i % 3 == 0 ? u" " + number : u"NAME" + number;
        list += hasQuotes && i % 2 == 1 ? u'"' + text + u",X\"" : text;
    }
    return list;
}

std::size_t SplitWithPeer(const String& list) {
    using Separator = boost::escaped_list_separator<char16_t>;
    std::vector<String> texts;
    std::vector<double> values;
    const boost::tokenizer<Separator, String::const_iterator, String> tokens(list, Separator(u'\\', u',', u'"'));
    for (const String& token : tokens) {
        texts.push_back(token);
        values.push_back(routing::FieldToNumber(token));
    }
    return values.size();
}

void Compare(int fields, bool hasQuotes) {
    constexpr int kFieldsARound = 100'000;
    const String list = MakeList(fields, hasQuotes);
    const int calls = std::max(1, kFieldsARound / fields);
    const std::string kind = hasQuotes ? " fields, half of them quoted" : " fields";
    tests::Measure(
        {"splitter, " + std::to_string(fields) + kind, "Boost.Tokenizer, escaped list", 0.4, 3},
        [&] {
            return tests::TimeOfCall(calls, [&] {
                routing::SplitFields(list);
                tests::Require(routing::FieldValues().front() == fields, "our count");
            });
        },
        [&] {
            return tests::TimeOfCall(calls, [&] {
                tests::Require(SplitWithPeer(list) == static_cast<std::size_t>(fields), "the peer's count");
            });
        });
}

}  // namespace

int main() {
    services::ProcessValues values;
    services::UseValues(&values);
    for (const bool hasQuotes : {false, true}) {
        for (const int fields : {100, 1'000, 10'000, 100'000, 1'000'000}) Compare(fields, hasQuotes);
    }
}
