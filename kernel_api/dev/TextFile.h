// A language file: localised texts by identifier, one "identifier = text" a line, in UTF-8.
//
// Blanks and tabs around identifier and text do not count. In a text, \n is a line break, \t a tab, \s a blank; a
// doubled backslash is a single one. Empty lines and lines that start with '#' say nothing. A line that cannot be read
// (no '=', no identifier, an identifier that was there before, an unknown escape, not UTF-8) is skipped and counted.
#pragma once

#include <cstddef>
#include <string_view>
#include <unordered_map>

#include "runtime/Text.h"

namespace kernel_api::dev {

class TextFile {
 public:
    TextFile() = default;
    /// `bytes` is the file as it was read, with or without a byte order mark.
    explicit TextFile(std::string_view bytes);

    /// The text under `identifier`, blanks around which do not count; null when there is none.
    const runtime::String* Find(runtime::StringView identifier) const;

    std::size_t Count() const { return texts_.size(); }
    std::size_t SkippedLines() const { return skippedLines_; }

 private:
    /// False when the line cannot be read.
    bool Take(std::string_view line);

    std::unordered_map<runtime::String, runtime::String> texts_;
    std::size_t skippedLines_ = 0;
};

}  // namespace kernel_api::dev
