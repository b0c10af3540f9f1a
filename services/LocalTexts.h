// The texts that code looks up by name. Each has an identifier, an English default and a note on its use. The designs
// of the forms hold the captions of forms and controls, with their identifiers.
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

// Two defaults with the same identifier: a translation replaces both.
inline constexpr LocalText kApplicationCaption = {u"LOC", u"Pelorix Background Processing Application",
                                                  u"caption of the main form"};
inline constexpr LocalText kModuleCaption = {u"LOC", u"Pelorix Background process ", u"title of error reports"};

// The blank at the end of each of these identifiers is part of it.
inline constexpr LocalText kFolderLead = {u"991019 ", u"Path: ", u"folder check, before the folder"};
inline constexpr LocalText kFolderNotAvailable = {u"99961 ", u" not available", u"folder check, after the folder"};

/// Not translated: "rtl" in a language that is read from right to left.
inline constexpr LocalText kDirection = {u"direction", u"ltr", u"reading direction of the dialogs"};
inline constexpr runtime::StringView kRightToLeft = u"rtl";

/// An error of the suite's common table, with the texts before and after the detail. Most errors have no text after it.
struct ErrorText {
    std::int32_t number;
    LocalText before;
    LocalText after = {};
};

/// Null if the table does not have `number`.
const ErrorText* FindErrorText(std::int32_t number);

/// The texts above that are translated, and those of the error reports.
std::vector<LocalText> CodeTexts();

/// The text in the current language, or its default if there is no translation.
runtime::String GetLocalText(const LocalText& text);

}  // namespace services
