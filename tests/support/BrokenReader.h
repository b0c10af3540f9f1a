// A reader whose calls all fail. The suite's reader object may lack a method. A call of a missing method fails with the
// error that this reader throws.
#pragma once

#include "kernel_api/Reader.h"
#include "runtime/Error.h"

namespace tests {

class BrokenReader : public kernel_api::Reader {
 public:
    void NormaliseFolder(runtime::String& /*folder*/) override { Fail(); }
    runtime::String GetSetting(runtime::StringView /*application*/, runtime::StringView /*key*/,
                               runtime::StringView /*defaultValue*/) override {
        Fail();
    }
    runtime::String GetText(runtime::StringView /*defaultText*/, runtime::StringView /*textId*/) override { Fail(); }
    runtime::String TextAt(kernel_api::TextPointer /*pointer*/) override { Fail(); }

 private:
    [[noreturn]] static void Fail() { throw runtime::Error(runtime::kPropertyNotSupported); }
};

}  // namespace tests
