// How the suite's comma fields come apart: fields between commas, each of them plain or in double quotes. The field
// splitter and the built-in field parser both walk a text with this; what they do about a quote that never closes is
// theirs.
#pragma once

#include "runtime/Text.h"

namespace kernel_api {

struct CommaField {
    runtime::StringView text;
    /// It opens with a quote that never closes: `text` is everything behind that quote, and it is the last field.
    bool isUnclosed = false;
};

/// Takes the fields of a text from its beginning. What lies between a closing quote and the next comma belongs to the
/// field, but then the character before the comma does not. The text's last character neither opens a quoted field nor
/// ends one. Every text has a first field. The text must outlive the walk, which searches it once only.
class CommaFields {
 public:
    explicit CommaFields(runtime::StringView text) : text_(text) {}

    bool AtEnd() const { return atEnd_; }
    /// The next field. Not to be called at the end.
    CommaField Take() { return OpensQuoted() ? TakeQuoted() : TakePlain(); }

 private:
    static constexpr char16_t kComma = u',';
    static constexpr char16_t kQuote = u'"';
    static constexpr std::size_t kNone = runtime::StringView::npos;

    bool OpensQuoted() const { return position_ + 1 < text_.size() && text_[position_] == kQuote; }

    CommaField TakeQuoted() {
        const std::size_t begin = position_ + 1;
        const std::size_t closing = text_.find(kQuote, begin);
        if (closing == kNone) {
            atEnd_ = true;
            return {text_.substr(begin), true};
        }
        const std::size_t comma = text_.find(kComma, closing + 1);
        atEnd_ = comma == kNone || comma + 1 == text_.size();
        const std::size_t end = atEnd_ ? text_.size() : comma;
        position_ = end + 1;
        // One less than `end`: normally the closing quote.
        return {text_.substr(begin, end - 1 - begin)};
    }

    CommaField TakePlain() {
        const std::size_t begin = position_;
        const std::size_t comma = text_.find(kComma, begin);
        atEnd_ = comma == kNone;
        position_ = comma + 1;
        return {text_.substr(begin, atEnd_ ? kNone : comma - begin)};
    }

    runtime::StringView text_;
    std::size_t position_ = 0;
    bool atEnd_ = false;
};

}  // namespace kernel_api
