// Tests Callback. A handler throws inside the window system, and the enclosing CallSystem throws the error again.
#include "runtime/win32/Callback.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "runtime/Error.h"
#include "runtime/FormObserver.h"
#include "tests/support/ErrorOf.h"

namespace runtime::win32 {
namespace {

using tests::ErrorOf;

/// Runs a failing handler inside Guard, like a window procedure.
int RunFailingHandler(std::int32_t number) {
    return Callback::Guard(-1, [number]() -> int { throw Error(number); });
}

TEST(Callback, HandlerSucceeds_ResultIsReturned) {
    EXPECT_EQ(Callback::Guard(-1, [] { return 7; }), 7);
    EXPECT_EQ(Callback::CallSystem([] { return 8; }), 8);
}

TEST(Callback, HandlerFails_EnclosingCallThrowsTheError) {
    int answer = 0;
    EXPECT_EQ(ErrorOf([&] { Callback::CallSystem([&] { answer = RunFailingHandler(kOverflow); }); }), kOverflow);
    EXPECT_EQ(answer, -1);
}

TEST(Callback, TwoHandlersFail_FirstErrorIsThrown) {
    const auto two = [] {
        RunFailingHandler(kOverflow);
        RunFailingHandler(kTypeMismatch);
    };
    EXPECT_EQ(ErrorOf([&] { Callback::CallSystem(two); }), kOverflow);
}

TEST(Callback, NestedCalls_ThrowTheErrorsOfTheirOwnHandlers) {
    std::int32_t inner = 0;
    std::int32_t innerLater = 0;
    const std::int32_t outer = ErrorOf([&] {
        Callback::CallSystem([&] {
            RunFailingHandler(kOverflow);
            inner = ErrorOf([] { Callback::CallSystem([] { RunFailingHandler(kTypeMismatch); }); });
            innerLater = ErrorOf([] { Callback::CallSystem([] {}); });
        });
    });
    EXPECT_EQ(inner, kTypeMismatch);
    EXPECT_EQ(innerLater, 0);
    EXPECT_EQ(outer, kOverflow);
}

TEST(Callback, InnerErrorIsCaught_OuterCallDoesNotThrow) {
    EXPECT_EQ(
        ErrorOf([] {
            Callback::CallSystem([] { ErrorOf([] { Callback::CallSystem([] { RunFailingHandler(kOverflow); }); }); });
        }),
        0);
}

TEST(Callback, HandlerFailsAfterAnInnerCall_OuterCallThrows) {
    const auto later = [] {
        Callback::CallSystem([] {});
        RunFailingHandler(kOverflow);
    };
    EXPECT_EQ(ErrorOf([&] { Callback::CallSystem(later); }), kOverflow);
}

TEST(Callback, CallAndHandlerFail_ErrorOfTheCallIsThrown) {
    const auto failing = [] {
        RunFailingHandler(kOverflow);
        throw Error(kTypeMismatch);
    };
    EXPECT_EQ(ErrorOf([&] { Callback::CallSystem(failing); }), kTypeMismatch);
    EXPECT_EQ(ErrorOf([] { Callback::CallSystem([] {}); }), 0);
}

TEST(Callback, NoEnclosingCall_ErrorIsNotThrown) {
    EXPECT_EQ(RunFailingHandler(kOverflow), -1);
    EXPECT_EQ(Callback::Guard(-1, []() -> int { throw 5; }), -1);
    EXPECT_EQ(ErrorOf([] { Callback::CallSystem([] {}); }), 0);
}

TEST(Callback, NoEnclosingCall_ObserverGetsTheError) {
    class Recording : public FormObserver {
     public:
        void Loading(const Form&) noexcept override {}
        void Loaded(const Form&) noexcept override {}
        void NotLoaded(const Form&, const std::exception_ptr&) noexcept override {}
        void Unloading(const Form&) noexcept override {}
        void UnloadRefused(const Form&) noexcept override {}
        void Unloaded(const Form&) noexcept override {}
        void ErrorIgnored(const std::exception& error) noexcept override { errors.emplace_back(error.what()); }
        std::vector<std::string> errors;
    } observer;
    UseFormObserver(&observer);
    RunFailingHandler(kOverflow);
    ErrorOf([] { Callback::CallSystem([] { RunFailingHandler(kTypeMismatch); }); });
    UseFormObserver(nullptr);
    EXPECT_EQ(observer.errors, std::vector<std::string>{"Overflow"});
}

}  // namespace
}  // namespace runtime::win32
