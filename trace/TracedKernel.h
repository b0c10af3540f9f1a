// Traces the suite's kernel. Writes a line for each call, with the arguments, the result or the error, and the
// duration of the call.
#pragma once

#include "kernel_api/Kernel.h"
#include "runtime/LocalePort.h"
#include "trace/Line.h"

namespace trace {

class TracedKernel final : public kernel_api::Kernel {
 public:
    /// `output`, `kernel` and `locale` must outlive the object.
    TracedKernel(Output& output, kernel_api::Kernel& kernel, runtime::LocalePort& locale)
        : output_(output), kernel_(kernel), locale_(locale) {}

    void E_SetString(StringView key, String& value) override;
    kernel_api::TextPointer E_GetString(StringView key) override;
    std::int32_t DB_DataBase() override;
    kernel_api::TextPointer O_GetName(std::int32_t handle) override;

 private:
    void AddText(Line& line, kernel_api::TextPointer pointer) const noexcept;

    Output& output_;
    kernel_api::Kernel& kernel_;
    runtime::LocalePort& locale_;
};

}  // namespace trace
