// The texts that code asks for by name, each written down once: identifier, English default, and where it is shown.
// Captions of forms and controls are not here, they stand with their identifiers in the forms' designs.
#pragma once

#include <cstdint>
#include <vector>

#include "runtime/Text.h"

namespace services {

struct LocalText {
    runtime::StringView id;
    runtime::StringView defaultText;
    runtime::StringView use;  ///< for translators
};

// One identifier with two defaults: a translation stands in both places.
inline constexpr LocalText kApplicationCaption = {u"LOC", u"Pelorix Background Processing Application",
                                                  u"caption of the main form"};
inline constexpr LocalText kModuleCaption = {u"LOC", u"Pelorix Background process ", u"title of error reports"};

// The blanks at the ends of these identifiers belong to them.
inline constexpr LocalText kFolderLead = {u"991019 ", u"Path: ", u"folder check, before the folder"};
inline constexpr LocalText kFolderNotAvailable = {u"99961 ", u" not available", u"folder check, after the folder"};

/// An error of the suite's common table: the texts before and after the detail; most errors have none after it.
struct ErrorText {
    std::int32_t number;
    LocalText before;
    LocalText after = {};
};

/// Null for a number that the table does not have.
const ErrorText* FindErrorText(std::int32_t number);

/// All of the above, and those of the error reports.
std::vector<LocalText> CodeTexts();

/// The text in the current language, or its default.
runtime::String GetLocalText(const LocalText& text);

}  // namespace services
