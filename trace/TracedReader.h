// The built-in reader with a line for each setting and text that is asked for; of a setting it names the source.
#pragma once

#include "kernel_api/builtin/BuiltInReader.h"
#include "trace/Line.h"

namespace trace {

class TracedReader final : public kernel_api::Reader {
 public:
    /// Both must outlive it.
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
