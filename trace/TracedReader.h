// Traces the built-in reader. Writes a line for each requested setting or text. The line of a setting contains its
// source.
#pragma once

#include "kernel_api/builtin/BuiltInReader.h"
#include "trace/Line.h"

namespace trace {

class TracedReader final : public kernel_api::Reader {
 public:
    /// `output` and `reader` must outlive the object.
    TracedReader(Output& output, kernel_api::builtin::BuiltInReader& reader) : output_(output), reader_(reader) {}

    void NormaliseFolder(String& folder) override;
    String GetSetting(StringView application, StringView key, StringView defaultValue) override;
    String GetText(StringView defaultText, StringView textId) override;
    String TextAt(kernel_api::TextPointer pointer) override { return reader_.TextAt(pointer); }

 private:
    Output& output_;
    kernel_api::builtin::BuiltInReader& reader_;
};

}  // namespace trace
