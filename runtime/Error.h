// Run-time errors: a number and a description, as the classic BASIC forms runtime has them. They are thrown
// where a caller cannot reasonably go on, and cross the component's edge as HRESULT 0x800A0000 + number.
#pragma once

#include <cstdint>
#include <exception>
#include <memory>
#include <string>
#include <type_traits>

#include "runtime/Text.h"

namespace runtime {

/// The error numbers in use. The descriptions are in one table in Error.cpp.
enum ErrorNumber : std::int32_t {
    kInvalidProcedureCall = 5,
    kOverflow = 6,
    kOutOfMemory = 7,
    kSubscriptOutOfRange = 9,
    kTypeMismatch = 13,
    kErrorInLoadingDll = 48,
    kInternalError = 51,
    kFileNotFound = 53,
    kDeviceUnavailable = 68,
    kPathFileAccessError = 75,
    kPathNotFound = 76,
    kObjectVariableNotSet = 91,
    kObjectWasUnloaded = 364,
    kInvalidPropertyValue = 380,
    kInvalidPropertyIndex = 381,
    kPropertyIsReadOnly = 383,
    kMoveWhileMinimisedOrMaximised = 384,
    kFormAlreadyDisplayed = 400,
    kPropertyNotSupported = 438,
    kDllEntryPointNotFound = 453,
    /// The suite's own, for leaving what is going on without a word to the user.
    kSilent = 9999,
};

/// Its copies share the texts: passing an error on takes no memory, which may be what is short.
class Error : public std::exception {
 public:
    /// With the standard description of `number`.
    explicit Error(std::int32_t number);
    Error(std::int32_t number, String description);
    Error(const Error&) noexcept = default;
    Error& operator=(const Error&) noexcept = default;
    ~Error() override = default;

    std::int32_t Number() const noexcept { return number_; }
    const String& Description() const noexcept { return texts_->description; }
    /// The description in UTF-8.
    const char* what() const noexcept override { return texts_->utf8.c_str(); }

 private:
    struct Texts {
        String description;
        std::string utf8;
    };

    std::int32_t number_;
    std::shared_ptr<const Texts> texts_;
};
static_assert(std::is_nothrow_copy_constructible_v<Error>);

/// Error 364 of an access to a form that has to be loaded and whose load handler unloads it: whatever failed in the
/// load has been dealt with there.
class FormUnloadedInLoad : public Error {
 public:
    explicit FormUnloadedInLoad(StringView form);
};

/// The standard description of `number`; "Application-defined or object-defined error" for one that has none.
String StandardDescription(std::int32_t number);

/// With the standard description of `number`, a colon and `about`: what it happened to, and what to do.
Error ErrorAbout(std::int32_t number, StringView about);

/// Runs `statement` and ignores its error, as a routine does that ignores errors statement by statement.
template <typename Statement>
void IgnoreErrors(Statement&& statement) {
    try {
        statement();
    } catch (const std::exception&) {
        // Ignored on purpose: the routine continues with its next statement.
    }
}

/// For steps that must all run although one fails: keeps the first error until the last step is done.
class FirstError {
 public:
    template <typename Step>
    void Run(Step&& step) {
        try {
            step();
        } catch (...) {
            if (!kept_) kept_ = std::current_exception();
        }
    }

    bool IsKept() const noexcept { return kept_ != nullptr; }
    const std::exception_ptr& Kept() const noexcept { return kept_; }
    /// Throws the kept error; nothing when every step went well.
    void Rethrow() const {
        if (kept_) std::rethrow_exception(kept_);
    }

 private:
    std::exception_ptr kept_;
};

}  // namespace runtime
