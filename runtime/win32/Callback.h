// Keeps exceptions of the component's handlers out of the window system. An exception must not leave a window
// procedure, because with this tool chain it would end the process. Guard stores the exception. The enclosing
// CallSystem on the same thread throws the exception again. If the client's own message loop called the window
// procedure, there is no enclosing CallSystem. Guard then reports the error to the observer of forms and sends its text
// to the debugger. Any thread may call.
#pragma once

#include <exception>
#include <type_traits>
#include <utility>

namespace runtime::win32 {

class Callback {
 public:
    /// Runs a handler inside a call of the window system. Never throws. Returns `failed` if the handler throws.
    template <typename Result, typename Handler>
    static Result Guard(Result failed, Handler&& handler) noexcept {
        try {
            return handler();
        } catch (...) {
            Scope::Store(std::current_exception());
            return failed;
        }
    }

    /// Runs a system call that may call the component's handlers. Then throws the first exception that Guard has
    /// stored. If `call` itself throws, that exception is thrown instead.
    template <typename Call>
    static auto CallSystem(Call&& call) {
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
    /// One call of CallSystem. Calls may nest. Each call keeps the first exception of its own handlers.
    class Scope {
     public:
        Scope() : outer_(std::exchange(innermost_, this)) {}
        Scope(const Scope&) = delete;
        Scope& operator=(const Scope&) = delete;
        ~Scope() { innermost_ = outer_; }

        void ThrowKept() {
            if (kept_) std::rethrow_exception(std::exchange(kept_, nullptr));
        }
        static void Store(std::exception_ptr error) noexcept;

     private:
        Scope* const outer_;
        std::exception_ptr kept_;
        static thread_local Scope* innermost_;
    };
};

}  // namespace runtime::win32
