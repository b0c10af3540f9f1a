// A slow but simple field splitter. It follows the rules of kernel_api::CommaFields one by one. Positions start at 1,
// and each step searches the text again. The tests and the fuzzer compare the real splitter with this splitter.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "runtime/Error.h"
#include "runtime/Numbers.h"
#include "runtime/Text.h"

namespace tests {

struct SlowFields {
    std::vector<runtime::String> texts;
    std::vector<double> values;
    std::int32_t error = 0;  ///< number of the error that ended the split, or 0
    bool isEndless = false;  ///< if true, the real splitter never returns; the arrays hold the closed fields
};

class SlowFieldSplitter {
 public:
    static SlowFields Split(runtime::StringView text) {
        SlowFieldSplitter splitter(text);
        try {
            splitter.Run();
        } catch (const runtime::Error& error) {
            splitter.fields_.error = error.Number();
        }
        return splitter.fields_;
    }

    static double ToNumber(runtime::String text) {
        if (text.empty()) return 0;
        for (char16_t& character : text) {
            if (character != u',') continue;
            character = u'.';
            break;
        }
        return runtime::Val(text);
    }

 private:
    explicit SlowFieldSplitter(runtime::StringView text) : text_(text), n_(text.size()) {}

    void Run() {
        std::size_t count = 0;
        std::size_t pos = 1;
        Grow(0);
        for (;;) {
            const std::size_t q = Find(u'"', pos);
            if (q == pos && q < n_) {
                const std::size_t closing = Find(u'"', q + 1);
                if (closing == 0) {
                    fields_.isEndless = true;
                    return;
                }
                ++count;
                std::size_t end = 0;
                for (std::size_t j = closing + 1;; ++j) {
                    if (j >= n_) {
                        end = n_;
                        break;
                    }
                    if (At(j) == u',') {
                        end = j - 1;
                        break;
                    }
                }
                Grow(count);
                Set(count, Middle(q + 1, end - q - 1));
                pos = end + 2;
                if (pos > n_) {
                    fields_.values[0] = static_cast<double>(count);
                    return;
                }
                continue;
            }
            const std::size_t k = Find(u',', pos);
            if (k != 0) {
                ++count;
                Grow(count);
                Set(count, Middle(pos, k - pos));
                pos = k + 1;
            }
            if (k == 0 || pos > n_) {
                Grow(count + 1);
                if (pos > n_) {
                    fields_.texts[count + 1].clear();
                    fields_.values[count + 1] = 0;
                } else {
                    Set(count + 1, Middle(pos, n_ - pos + 1));
                }
                fields_.values[0] = static_cast<double>(count + 1);
                return;
            }
        }
    }

    char16_t At(std::size_t position) const { return text_[position - 1]; }

    /// Returns the position of the first `character` at or after `position`, or 0.
    std::size_t Find(char16_t character, std::size_t position) const {
        for (; position <= n_; ++position) {
            if (At(position) == character) return position;
        }
        return 0;
    }

    runtime::String Middle(std::size_t position, std::size_t length) const {
        runtime::String part;
        for (std::size_t i = 0; i < length; ++i) part += At(position + i);
        return part;
    }

    void Grow(std::size_t last) {
        fields_.texts.resize(last + 1);
        fields_.values.resize(last + 1);
    }

    void Set(std::size_t index, const runtime::String& text) {
        fields_.texts[index] = text;
        fields_.values[index] = ToNumber(text);
    }

    runtime::StringView text_;
    std::size_t n_;
    SlowFields fields_;
};

/// True if splitting `text` never ends, unless an error ends it earlier. This is so if the text ends inside a quoted
/// field and the opening quote is not the last character. The function reads each character once and does not search.
inline bool NeverReturns(runtime::StringView text) {
    enum class Place { kFieldStart, kPlain, kQuoted, kBehindQuotes };
    Place place = Place::kFieldStart;
    for (const char16_t character : text) {
        const bool isComma = character == u',';
        const bool isQuote = character == u'"';
        switch (place) {
            case Place::kFieldStart:
                if (!isComma) place = isQuote ? Place::kQuoted : Place::kPlain;
                break;
            case Place::kQuoted:
                if (isQuote) place = Place::kBehindQuotes;
                break;
            case Place::kPlain:
            case Place::kBehindQuotes:
                if (isComma) place = Place::kFieldStart;
                break;
        }
    }
    if (place != Place::kQuoted) return false;
    const bool isOpenedByLast = text.back() == u'"';
    return !isOpenedByLast;
}

}  // namespace tests
