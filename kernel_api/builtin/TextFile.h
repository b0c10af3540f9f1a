// Reads a language file. The file contains localised texts in UTF-8. Each text is on a line "identifier = text".
//
// Blanks and tabs around identifier and text are removed. In a text, \n is a line break, \t a tab, \s a blank, and \\ a
// backslash. Empty lines and lines that start with '#' are ignored. A line ends with CR, LF or CR LF. A line that
// cannot be read (see LineFault) is skipped and counted.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string_view>
#include <vector>

#include "runtime/Text.h"

namespace kernel_api::builtin {

/// The reason why a line cannot be read. A line without a text is a fault, because a button would have no caption. To
/// leave a text untranslated, omit its line. The component then shows the default text. A NUL is reported as "not
/// UTF-8", because a file with NULs is normally UTF-16.
enum class LineFault { kNoEqualsSign, kNoIdentifier, kNoText, kTwice, kUnknownEscape, kNotUtf8 };

/// Receives the number of a skipped line, counted from 1, and the line's fault.
using FaultSink = std::function<void(std::size_t line, LineFault fault)>;

/// A text of a language file. The parts are valid as long as the file's object exists and is unchanged.
struct TextEntry {
    runtime::StringView identifier;
    runtime::StringView text;
};

/// All texts are in one block of memory, and a hash table refers to their places. A look-up therefore touches little
/// memory even among many texts.
class TextFile {
 public:
    TextFile() = default;
    /// Reads the texts from `bytes`, the whole file with or without a byte order mark. `bytes` must have less than 4
    /// GB.
    explicit TextFile(std::string_view bytes, const FaultSink& onFault = {});

    /// Returns the text under `identifier`; no value if there is none. Ignores blanks and tabs around `identifier`. The
    /// text is valid as long as this object exists and is unchanged.
    std::optional<runtime::StringView> Find(runtime::StringView identifier) const;

    /// Returns all texts, in any order.
    std::vector<TextEntry> All() const {
        std::vector<TextEntry> entries;
        for (const Slot& slot : slots_) {
            if (slot.end != 0) entries.push_back(EntryOf(slot));
        }
        return entries;
    }
    std::size_t Count() const { return count_; }
    std::size_t SkippedLines() const { return skippedLines_; }

 private:
    /// A place in `characters_`: an identifier, directly followed by its text. An empty slot has the end 0.
    struct Slot {
        std::uint32_t hash = 0;  ///< of the identifier
        std::uint32_t identifier = 0;
        std::uint32_t text = 0;
        std::uint32_t end = 0;
    };

    /// Adds the line's text, if the line has a text. Returns the fault of a line that cannot be read.
    std::optional<LineFault> Take(std::string_view line);
    /// Returns false, and adds nothing, if the identifier has a text already.
    bool Add(runtime::StringView identifier, runtime::StringView text);
    void Grow();
    /// Returns the index of the identifier's slot. If the identifier has no text, the slot is empty. At least one slot
    /// must be empty.
    std::size_t Place(runtime::StringView identifier, std::uint32_t hash) const;
    TextEntry EntryOf(const Slot& slot) const;

    runtime::String characters_;  ///< identifiers and texts
    std::vector<Slot> slots_;     ///< a hash table with linear probing; at most half of the slots are in use
    std::size_t count_ = 0;
    std::size_t skippedLines_ = 0;
};

/// Converts `text` to the form that a language file needs. A blank at the start or end becomes \s, a tab \t, a
/// backslash \\, and a line break (CR LF) \n. A single CR or LF also becomes \n.
runtime::String EscapeText(runtime::StringView text);

}  // namespace kernel_api::builtin
