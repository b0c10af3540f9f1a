// Lists the texts that the code uses. A text has an identifier, an English default and a note on its use. Except for
// the main form's caption, captions of forms and controls are not listed here, because the designs of the forms contain
// these captions.
#pragma once

#include <cstdint>
#include <vector>

#include "runtime/Text.h"

namespace services {

struct LocalText {
    runtime::StringView id;
    runtime::StringView defaultText;
    runtime::StringView use;  ///< a note for translators
};

// The next two texts have the same identifier, so a translation replaces both.
inline constexpr LocalText kApplicationCaption = {u"LOC", u"Pelorix Background Processing Application",
                                                  u"caption of the main form"};
inline constexpr LocalText kModuleCaption = {u"LOC", u"Pelorix Background process ", u"title of error reports"};

// The next two identifiers end in a blank. The blank is part of the identifier.
inline constexpr LocalText kFolderLead = {u"991019 ", u"Path: ", u"folder check, before the folder"};
inline constexpr LocalText kFolderNotAvailable = {u"99961 ", u" not available", u"folder check, after the folder"};

/// This entry is not a text for translation. A language that is read from right to left sets it to "rtl".
inline constexpr LocalText kDirection = {u"direction", u"ltr", u"reading direction of the dialogs"};
inline constexpr runtime::StringView kRightToLeft = u"rtl";

/// An error of the suite's common table, with the texts before and after the error's detail, for example a file name.
/// Most errors have no text after the detail.
struct ErrorText {
    std::int32_t number;
    LocalText before;
    LocalText after = {};
};

/// Returns the entry for `number`; null if the table has no entry.
const ErrorText* FindErrorText(std::int32_t number);

/// Returns the texts for translators: the texts above except kDirection, and the texts of the error table.
std::vector<LocalText> CodeTexts();

/// Returns the text in the current language; the default if there is no translation.
runtime::String GetLocalText(const LocalText& text);

}  // namespace services
