// A language file: localised texts in UTF-8, each on a line "identifier = text".
//
// Blanks and tabs around identifier and text are removed. In a text, \n is a line break, \t a tab, \s a blank, and \\ a
// backslash. Empty lines and lines that start with '#' are ignored. A line ends with CR, LF or CR LF. A line that
// cannot be read (see LineFault) is skipped and counted.
#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string_view>
#include <unordered_map>

#include "runtime/Text.h"

namespace kernel_api::builtin {

/// Why a line cannot be read. A line without a text is a fault, because a button would have no caption; an untranslated
/// text has no line and is shown by its default. A NUL is "not UTF-8", because the file then has another encoding.
enum class LineFault { kNoEqualsSign, kNoIdentifier, kNoText, kTwice, kUnknownEscape, kNotUtf8 };

/// Receives the number of each skipped line, counted from 1, and its fault.
using FaultSink = std::function<void(std::size_t line, LineFault fault)>;

class TextFile {
 public:
    struct Hash {
        using is_transparent = void;
        std::size_t operator()(runtime::StringView text) const { return std::hash<runtime::StringView>()(text); }
    };
    using Texts = std::unordered_map<runtime::String, runtime::String, Hash, std::equal_to<>>;

    TextFile() = default;
    /// `bytes` is the whole file, with or without a byte order mark.
    explicit TextFile(std::string_view bytes, const FaultSink& onFault = {});

    /// The text under `identifier`, or null. Blanks and tabs around `identifier` are ignored.
    const runtime::String* Find(runtime::StringView identifier) const;

    const Texts& All() const { return texts_; }
    std::size_t Count() const { return texts_.size(); }
    std::size_t SkippedLines() const { return skippedLines_; }

 private:
    /// Adds the line's text, if it has one. Returns the fault of a line that cannot be read.
    std::optional<LineFault> Take(std::string_view line);

    Texts texts_;
    std::size_t skippedLines_ = 0;
};

/// `text` in the form that a language file needs: a blank at either end becomes \s, a tab \t, a backslash \\, a line
/// break (CR LF) \n. A single CR or LF has no form of its own and becomes \n, too.
runtime::String EscapeText(runtime::StringView text);

}  // namespace kernel_api::builtin
