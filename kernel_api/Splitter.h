// The suite's shared string splitter, as this component calls it. It parses the comma fields of commands and counts
// the pieces of a text.
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
    /// Field `number`, counted from 1; "" if there is no such field. The result is valid until the next SetText.
    virtual StringView Field(std::int32_t number) = 0;
};

class Splitter {
 public:
    virtual ~Splitter() = default;

    virtual std::unique_ptr<FieldParser> MakeFieldParser() = 0;
    /// The number of pieces into which `separator` divides `text`, at least 1. An empty last piece counts.
    virtual std::int32_t CountPieces(StringView text, StringView separator) = 0;
};

/// The splitter in use. Error 91 before a splitter was chosen.
Splitter& CurrentSplitter();

}  // namespace kernel_api
