// A language file: localised texts by identifier, one "identifier = text" a line, in UTF-8.
//
// Blanks and tabs around identifier and text do not count. In a text, \n is a line break, \t a tab, \s a blank; a
// doubled backslash is a single one. Empty lines and lines that start with '#' say nothing. A line ends at CR, LF or
// both. A line that cannot be read (see LineFault) is skipped and counted.
#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string_view>
#include <unordered_map>

#include "runtime/Text.h"

namespace kernel_api::builtin {

/// Why a line cannot be read. One without a text would leave a button without a caption; what nobody has translated yet
/// is shown by its default. A NUL counts as "not UTF-8": the file is in another encoding then.
enum class LineFault { kNoEqualsSign, kNoIdentifier, kNoText, kTwice, kUnknownEscape, kNotUtf8 };

/// Hears of each line that is skipped; lines are numbered from 1.
using FaultSink = std::function<void(std::size_t line, LineFault fault)>;

class TextFile {
 public:
    struct Hash {
        using is_transparent = void;
        std::size_t operator()(runtime::StringView text) const { return std::hash<runtime::StringView>()(text); }
    };
    /// By identifier, without the blanks around it.
    using Texts = std::unordered_map<runtime::String, runtime::String, Hash, std::equal_to<>>;

    TextFile() = default;
    /// `bytes` is the file as it was read, with or without a byte order mark.
    explicit TextFile(std::string_view bytes, const FaultSink& onFault = {});

    /// The text under `identifier`, blanks around which do not count; null when there is none.
    const runtime::String* Find(runtime::StringView identifier) const;

    const Texts& All() const { return texts_; }
    std::size_t Count() const { return texts_.size(); }
    std::size_t SkippedLines() const { return skippedLines_; }

 private:
    /// What keeps the line from being read; none when it was taken.
    std::optional<LineFault> Take(std::string_view line);

    Texts texts_;
    std::size_t skippedLines_ = 0;
};

/// `text` as it stands in a language file, so that reading gives it back: a blank at either end is written \s, a line
/// break (CR LF) \n. A CR or LF alone has no written form; it becomes \n as well.
runtime::String EscapeText(runtime::StringView text);

}  // namespace kernel_api::builtin
