#include "routing/FieldSplitter.h"

#include <chrono>
#include <cstddef>
#include <thread>

#include "kernel_api/CommaFields.h"
#include "runtime/Error.h"
#include "runtime/Numbers.h"

namespace routing {

using runtime::String;
using runtime::StringView;

namespace {

/// Never returns. This is the defined behaviour of the splitter for a quoted field that is not closed.
[[noreturn]] void LoopForever() {
    // The compiler may remove an endless loop without side effects. Reading a volatile is a side effect.
    const volatile bool isFoundAgain = true;
    for (;;) {
        static_cast<void>(isFoundAgain);
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
}

/// Returns the field's number and text for an error message. Truncates the text after 80 characters.
String InWords(std::size_t place, StringView field) {
    constexpr std::size_t kMaxShown = 80;
    const bool isCut = field.size() > kMaxShown;
    return u"field" + runtime::Str(static_cast<std::int32_t>(place)) + u", '" + String(field.substr(0, kMaxShown)) +
           (isCut ? u"…'" : u"'");
}

/// Adds a field. Extends both arrays before it reads the number, so that their lengths are equal after an error.
void Add(StringView field, std::vector<String>& texts, std::vector<double>& values) {
    texts.emplace_back(field);
    values.push_back(0);
    try {
        values.back() = FieldToNumber(field);
    } catch (const runtime::Error& error) {
        throw runtime::ErrorAbout(error.Number(), InWords(texts.size() - 1, field));
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
    std::vector<String>& texts = FieldTexts();
    std::vector<double>& values = FieldValues();
    // Copy `text`, because it may refer to one of the previous texts.
    const String list(text);
    texts.clear();
    values.clear();
    Add({}, texts, values);  // entry 0
    for (kernel_api::CommaFields fields(list); !fields.AtEnd();) {
        const kernel_api::CommaField field = fields.Take();
        if (field.isUnclosed) LoopForever();
        Add(field.text, texts, values);
    }
    values.front() = static_cast<double>(texts.size() - 1);
}

double FieldToNumber(StringView text) {
    return runtime::Val(text, u".,");
}

const String& FieldText(std::int32_t index) {
    return EntryOf(FieldTexts(), index);
}

double FieldValue(std::int32_t index) {
    return EntryOf(FieldValues(), index);
}

}  // namespace routing
