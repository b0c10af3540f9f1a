// Splits a text into the suite's comma fields. A field is plain or in double quotes. The field splitter and the
// built-in field parser use this class. If a quote never closes, the field splitter never returns, and the parser takes
// the rest of the text.
#pragma once

#include "runtime/Text.h"

namespace kernel_api {

struct CommaField {
    runtime::StringView text;
    /// True if the field opens with a quote that never closes. The field is then the last field, and `text` is
    /// everything after the quote.
    bool isUnclosed = false;
};

/// Returns the fields of a text one after another. The text must outlive the object. The search never goes back, so
/// its time is proportional to the text's length.
/// - Every text has at least one field.
/// - A quoted field extends to the first comma after its closing quote. Without such a comma, or if that comma is the
///   text's last character, the field extends to the end of the text.
/// - The result leaves out the last character of a quoted field, normally its closing quote.
/// - A field that is only a quote at the end of the text is plain. Its text is the quote.
class CommaFields {
 public:
    explicit CommaFields(runtime::StringView text) : text_(text) {}

    bool AtEnd() const { return atEnd_; }
    /// Returns the next field. Must not be called at the end.
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
        // Leave out the last character, normally the closing quote.
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
