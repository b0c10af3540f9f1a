// This is the interface of the suite's shared string splitter. The splitter parses the comma fields of commands and
// counts the pieces of a text.
#pragma once

#include <cstdint>
#include <memory>

#include "runtime/Text.h"

namespace kernel_api {

using runtime::String;
using runtime::StringView;

/// Splits one text at a time into fields between commas.
class FieldParser {
 public:
    virtual ~FieldParser() = default;

    /// Copies `text` and makes it the text to split.
    virtual void SetText(StringView text) = 0;
    /// Returns field `number`, counted from 1; "" if the field does not exist. The result is valid until the next
    /// SetText.
    virtual StringView Field(std::int32_t number) = 0;
};

class Splitter {
 public:
    virtual ~Splitter() = default;

    virtual std::unique_ptr<FieldParser> MakeFieldParser() = 0;
    /// Returns the number of pieces into which `separator` divides `text`, at least 1. Also counts an empty last piece.
    virtual std::int32_t CountPieces(StringView text, StringView separator) = 0;
};

/// Returns the splitter in use. Error 91 if no splitter was chosen.
Splitter& CurrentSplitter();

}  // namespace kernel_api
