#include "routing/FieldSplitter.h"

#include <chrono>
#include <cstddef>
#include <thread>
#include <utility>

#include "kernel_api/CommaFields.h"
#include "runtime/Error.h"
#include "runtime/Numbers.h"

namespace routing {

using runtime::String;
using runtime::StringView;

namespace {

constexpr char16_t kComma = u',';

/// What a quoted field without its closing quote leads to: the same quote is found again for ever.
[[noreturn]] void RepeatForEver() {
    // An endless loop without any side effect may be removed by the compiler; reading a volatile is one.
    const volatile bool isFoundAgain = true;
    for (;;) {
        static_cast<void>(isFoundAgain);
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
}

/// The field's place and text, cut off where it is too long to be read in a message.
String InWords(std::size_t place, StringView field) {
    constexpr std::size_t kMaxShown = 80;
    const bool isCut = field.size() > kMaxShown;
    return u"field" + runtime::Str(static_cast<std::int32_t>(place)) + u", '" + String(field.substr(0, kMaxShown)) +
           (isCut ? u"…'" : u"'");
}

/// The arrays grow before the number is read, so that an error in it leaves them as long as each other.
void Add(StringView field) {
    FieldTexts().emplace_back(field);
    FieldValues().push_back(0);
    try {
        FieldValues().back() = FieldToNumber(field);
    } catch (const runtime::Error& error) {
        throw runtime::ErrorAbout(error.Number(), InWords(FieldTexts().size() - 1, field));
    }
}

template <typename Entry>
const Entry& EntryOf(const std::vector<Entry>& entries, std::int32_t index) {
    if (index < 0 || static_cast<std::size_t>(index) >= entries.size()) {
        throw runtime::ErrorAbout(runtime::kSubscriptOutOfRange, u"there is no field" + runtime::Str(index));
    }
    return entries[static_cast<std::size_t>(index)];
}

}  // namespace

void SplitFields(StringView text) {
    // Kept until the end, because `text` may lie in one of its entries.
    const std::vector<String> previous = std::exchange(FieldTexts(), std::vector<String>(1));
    FieldValues().assign(1, 0);
    for (kernel_api::CommaFields fields(text); !fields.AtEnd();) {
        const kernel_api::CommaField field = fields.Take();
        if (field.isUnclosed) RepeatForEver();
        Add(field.text);
    }
    FieldValues().front() = static_cast<double>(FieldTexts().size() - 1);
}

double FieldToNumber(StringView text) {
    const std::size_t comma = text.find(kComma);
    if (comma == StringView::npos) return runtime::Val(text);
    String withPeriod(text);
    withPeriod[comma] = u'.';
    return runtime::Val(withPeriod);
}

const String& FieldText(std::int32_t index) {
    return EntryOf(FieldTexts(), index);
}

double FieldValue(std::int32_t index) {
    return EntryOf(FieldValues(), index);
}

}  // namespace routing
