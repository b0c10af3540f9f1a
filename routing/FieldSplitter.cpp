#include "routing/FieldSplitter.h"

#include <chrono>
#include <thread>
#include <utility>

#include "runtime/Error.h"
#include "runtime/Numbers.h"

namespace routing {

using runtime::String;
using runtime::StringView;

std::vector<String> FieldTexts;
std::vector<double> FieldValues;

namespace {

constexpr char16_t kComma = u',';
constexpr char16_t kQuote = u'"';

/// What a quoted field without its closing quote leads to: the same quote is found again for ever.
[[noreturn]] void RepeatForEver() {
    // An endless loop without any side effect may be removed by the compiler; reading a volatile is one.
    const volatile bool isFoundAgain = true;
    for (;;) {
        static_cast<void>(isFoundAgain);
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
}

/// Each step starts behind what the steps before have consumed, so that the whole text is searched once only.
class Splitter {
 public:
    explicit Splitter(StringView text) : text_(text) {}

    void Run() {
        while (TakeField()) {
        }
    }

 private:
    /// False when the field was the last one.
    bool TakeField() { return OpensQuotedField() ? TakeQuoted() : TakePlain(); }

    bool OpensQuotedField() const { return position_ + 1 < text_.size() && text_[position_] == kQuote; }

    bool TakeQuoted() {
        const std::size_t begin = position_ + 1;
        const std::size_t closing = text_.find(kQuote, begin);
        if (closing == StringView::npos) RepeatForEver();
        const std::size_t comma = text_.find(kComma, closing + 1);
        // A comma that is the text's last character is not seen.
        const bool isLast = comma == StringView::npos || comma + 1 == text_.size();
        const std::size_t end = isLast ? text_.size() : comma;
        // One less than `end`: normally the closing quote.
        Add(text_.substr(begin, end - 1 - begin));
        position_ = end + 1;
        return !isLast;
    }

    bool TakePlain() {
        const std::size_t comma = text_.find(kComma, position_);
        const bool isLast = comma == StringView::npos;
        Add(text_.substr(position_, isLast ? StringView::npos : comma - position_));
        position_ = comma + 1;
        return !isLast;
    }

    /// The arrays grow before the number is read, so that an error in it leaves them as long as each other.
    static void Add(StringView field) {
        FieldTexts.emplace_back(field);
        FieldValues.push_back(0);
        FieldValues.back() = FieldToNumber(field);
    }

    StringView text_;
    std::size_t position_ = 0;
};

template <typename Entry>
const Entry& EntryOf(const std::vector<Entry>& entries, std::int32_t index) {
    if (index < 0 || static_cast<std::size_t>(index) >= entries.size()) {
        throw runtime::Error(runtime::kSubscriptOutOfRange);
    }
    return entries[static_cast<std::size_t>(index)];
}

}  // namespace

void SplitFields(const String& text) {
    // Kept until the end, because `text` may be one of its entries.
    const std::vector<String> previous = std::exchange(FieldTexts, std::vector<String>(1));
    FieldValues.assign(1, 0);
    Splitter(text).Run();
    FieldValues.front() = static_cast<double>(FieldTexts.size() - 1);
}

double FieldToNumber(StringView text) {
    const std::size_t comma = text.find(kComma);
    if (comma == StringView::npos) return runtime::Val(text);
    String withPeriod(text);
    withPeriod[comma] = u'.';
    return runtime::Val(withPeriod);
}

const String& FieldText(std::int32_t index) {
    return EntryOf(FieldTexts, index);
}

double FieldValue(std::int32_t index) {
    return EntryOf(FieldValues, index);
}

void ResetFieldSplitter() {
    FieldTexts.clear();
    FieldValues.clear();
}

}  // namespace routing
