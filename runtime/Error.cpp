#include "runtime/Error.h"

#include <utility>

#include "runtime/FormObserver.h"

namespace runtime {
namespace {

struct Entry {
    std::int32_t number;
    StringView description;
};

constexpr Entry kDescriptions[] = {
    {kInvalidProcedureCall, u"Invalid procedure call or argument"},
    {kOverflow, u"Overflow"},
    {kOutOfMemory, u"Out of memory"},
    {kSubscriptOutOfRange, u"Subscript out of range"},
    {kTypeMismatch, u"Type mismatch"},
    {kErrorInLoadingDll, u"Error in loading DLL"},
    {kInternalError, u"Internal error"},
    {kFileNotFound, u"File not found"},
    {kDeviceUnavailable, u"Device unavailable"},
    {kPathFileAccessError, u"Path/File access error"},
    {kPathNotFound, u"Path not found"},
    {kObjectVariableNotSet, u"Object variable or With block variable not set"},
    {kObjectWasUnloaded, u"Object was unloaded"},
    {kInvalidPropertyValue, u"Invalid property value"},
    {kInvalidPropertyIndex, u"Invalid property array index"},
    {kPropertyIsReadOnly, u"Set not supported (read-only property)"},
    {kMoveWhileMinimisedOrMaximised, u"A form can't be moved or sized while minimized or maximized"},
    {kFormAlreadyDisplayed, u"Form already displayed; can't show modally"},
    {kPropertyNotSupported, u"Object doesn't support this property or method"},
    {kDllEntryPointNotFound, u"Can't find DLL entry point"},
};

}  // namespace

String StandardDescription(std::int32_t number) {
    for (const Entry& entry : kDescriptions) {
        if (entry.number == number) return String(entry.description);
    }
    return u"Application-defined or object-defined error";
}

Error::Error(std::int32_t number) : Error(number, StandardDescription(number)) {}

Error::Error(std::int32_t number, String description) : number_(number) {
    std::string utf8 = ToUtf8(description);
    texts_ = std::make_shared<const Texts>(Texts{std::move(description), std::move(utf8)});
}

FormUnloadedInLoad::FormUnloadedInLoad(StringView form) : Error(ErrorAbout(kObjectWasUnloaded, form)) {}

void NoteIgnored(const std::exception& error) noexcept {
    if (FormObserver* const observer = CurrentFormObserver()) observer->ErrorIgnored(error);
}

Error ErrorAbout(std::int32_t number, StringView about) {
    return {number, StandardDescription(number) + u": " + String(about)};
}

}  // namespace runtime
