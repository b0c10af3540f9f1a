// The splitter that stands in for the suite's own. It splits as the component's field splitter does, but for a quote
// that never closes: there the field is the rest of the text.
#pragma once

#include "kernel_api/Splitter.h"

namespace kernel_api::builtin {

class BuiltInSplitter : public Splitter {
 public:
    std::unique_ptr<FieldParser> MakeFieldParser() override;
    /// A text that the separator does not divide is one piece, an empty one and one without a separator too.
    std::int32_t CountPieces(StringView text, StringView separator) override;
};

}  // namespace kernel_api::builtin
