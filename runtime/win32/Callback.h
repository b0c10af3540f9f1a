// The guard between the window system and our handlers. An error must not leave a window procedure, so it is kept
// there and thrown again by the call of ours that led into the window system; when the client's own message loop led
// there, nobody of ours waits for it and it is reported to the debugger.
#pragma once

#include <exception>
#include <type_traits>
#include <utility>

namespace runtime::win32 {

class Callback {
 public:
    /// Runs a handler for the window system. Never throws; returns `failed` when the handler did.
    template <typename Result, typename Handler>
    static Result Guard(Result failed, Handler&& handler) noexcept {
        try {
            return handler();
        } catch (...) {
            Scope::Keep(std::current_exception());
            return failed;
        }
    }

    /// Runs a call into the window system; throws the error that a handler left meanwhile, unless the call itself
    /// throws.
    template <typename Call>
    static auto Into(Call&& call) {
        Scope scope;
        if constexpr (std::is_void_v<decltype(call())>) {
            call();
            scope.ThrowKept();
        } else {
            auto result = call();
            scope.ThrowKept();
            return result;
        }
    }

 private:
    /// One call into the window system. Calls nest, and each has the errors of its own handlers.
    class Scope {
     public:
        Scope() : outer_(std::exchange(innermost_, this)) {}
        Scope(const Scope&) = delete;
        Scope& operator=(const Scope&) = delete;
        ~Scope() { innermost_ = outer_; }

        void ThrowKept() {
            if (kept_) std::rethrow_exception(std::exchange(kept_, nullptr));
        }
        static void Keep(std::exception_ptr error) noexcept;

     private:
        Scope* const outer_;
        std::exception_ptr kept_;
        static thread_local Scope* innermost_;
    };
};

}  // namespace runtime::win32
