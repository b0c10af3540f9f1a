#include "runtime/win32/Callback.h"

#include "runtime/Error.h"
#include "runtime/win32/WindowsHeaders.h"

namespace runtime::win32 {

thread_local Callback::Scope* Callback::Scope::innermost_ = nullptr;

void Callback::Scope::Store(std::exception_ptr error) noexcept {
    if (innermost_) {
        if (!innermost_->kept_) innermost_->kept_ = std::move(error);
        return;
    }
    try {
        std::rethrow_exception(error);
    } catch (const std::exception& e) {
        OutputDebugStringA(e.what());
        NoteIgnored(e);
    } catch (...) {
        OutputDebugStringA("unknown exception in a window procedure");
    }
}

}  // namespace runtime::win32
