// Reads a language file. The file contains localised texts in UTF-8. Each text is on a line "identifier = text".
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

/// The reason why a line cannot be read. A line without a text is a fault, because a button would have no caption. The
/// file has no line for an untranslated text, and the default is then shown. A NUL is reported as "not UTF-8", because
/// the file then has another encoding.
enum class LineFault { kNoEqualsSign, kNoIdentifier, kNoText, kTwice, kUnknownEscape, kNotUtf8 };

/// Receives the number of a skipped line, counted from 1, and the line's fault.
using FaultSink = std::function<void(std::size_t line, LineFault fault)>;

class TextFile {
 public:
    struct Hash {
        using is_transparent = void;
        std::size_t operator()(runtime::StringView text) const { return std::hash<runtime::StringView>()(text); }
    };
    using Texts = std::unordered_map<runtime::String, runtime::String, Hash, std::equal_to<>>;

    TextFile() = default;
    /// Reads the texts from `bytes`, the whole file with or without a byte order mark.
    explicit TextFile(std::string_view bytes, const FaultSink& onFault = {});

    /// Returns the text under `identifier`, or null. Ignores blanks and tabs around `identifier`.
    const runtime::String* Find(runtime::StringView identifier) const;

    const Texts& All() const { return texts_; }
    std::size_t Count() const { return texts_.size(); }
    std::size_t SkippedLines() const { return skippedLines_; }

 private:
    /// Adds the line's text, if the line has a text. Returns the fault of a line that cannot be read.
    std::optional<LineFault> Take(std::string_view line);

    Texts texts_;
    std::size_t skippedLines_ = 0;
};

/// Converts `text` to the form that a language file needs. A blank at the start or end becomes \s, a tab \t, a
/// backslash \\, and a line break (CR LF) \n. A single CR or LF also becomes \n.
runtime::String EscapeText(runtime::StringView text);

}  // namespace kernel_api::builtin
