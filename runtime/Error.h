// Defines run-time errors with the numbers and descriptions of the classic BASIC forms runtime. Code throws an error if
// its caller cannot reasonably continue. A COM client receives a run-time error with a number from 0 to 65535 as
// HRESULT 0x800A0000 + number.
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
    /// An error number of the suite. It ends an action without a message to the user.
    kSilent = 9999,
};

/// A run-time error. Copies share the texts, so copying allocates no memory. That matters if memory is short.
class Error : public std::exception {
 public:
    /// Makes an error with the standard description of `number`.
    explicit Error(std::int32_t number);
    Error(std::int32_t number, String description);
    Error(const Error&) noexcept = default;
    Error& operator=(const Error&) noexcept = default;
    ~Error() override = default;

    std::int32_t Number() const noexcept { return number_; }
    const String& Description() const noexcept { return texts_->description; }
    /// Returns the description in UTF-8.
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

/// Error 364. An access needs the form to be loaded, but the form's own load handler has unloaded the form. The load
/// handler has already handled the cause.
class FormUnloadedInLoad : public Error {
 public:
    explicit FormUnloadedInLoad(StringView form);
};

/// Returns the standard description of `number`. If the number has no description, returns "Application-defined or
/// object-defined error".
String StandardDescription(std::int32_t number);

/// Returns an error with the standard description, a colon and `about`. `about` names the object and may contain
/// advice.
Error ErrorAbout(std::int32_t number, StringView about);

/// Reports an ignored error to the observer of forms, if there is an observer. Any thread may call.
void NoteIgnored(const std::exception& error) noexcept;

/// Runs `statement`. Reports a std::exception with NoteIgnored, and the caller continues.
template <typename Statement>
void IgnoreErrors(Statement&& statement) {
    try {
        statement();
    } catch (const std::exception& error) {
        // Ignored on purpose, because the caller continues with its next statement.
        NoteIgnored(error);
    }
}

/// Runs steps that must all run even if a step fails. Keeps the first exception.
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
    /// Throws the stored exception if there is one.
    void Rethrow() const {
        if (kept_) std::rethrow_exception(kept_);
    }

 private:
    std::exception_ptr kept_;
};

}  // namespace runtime
