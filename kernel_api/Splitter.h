// The suite's shared string splitter, as this component calls it: it parses the comma fields of commands, and counts
// the pieces of a text.
#pragma once

#include <cstdint>
#include <memory>

#include "runtime/Text.h"

namespace kernel_api {

using runtime::String;
using runtime::StringView;

/// One text at a time, as fields between commas.
class FieldParser {
 public:
    virtual ~FieldParser() = default;

    /// From now on the fields are those of `text`, of which the parser keeps a copy.
    virtual void SetText(StringView text) = 0;
    /// Field `number`, from 1; "" for one that is not there. It holds until the next SetText.
    virtual StringView Field(std::int32_t number) = 0;
};

class Splitter {
 public:
    virtual ~Splitter() = default;

    virtual std::unique_ptr<FieldParser> MakeFieldParser() = 0;
    /// How many pieces `separator` makes of `text`. An empty last piece counts, so there is always at least one.
    virtual std::int32_t CountPieces(StringView text, StringView separator) = 0;
};

/// The splitter in use. Error 91 before one was chosen.
Splitter& CurrentSplitter();

}  // namespace kernel_api
