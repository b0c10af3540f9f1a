// The list of all texts that the component looks up in the suite's reader. A language file translates these texts. The
// list is made from the tables of the services and the designs of the forms, so that it is complete.
#pragma once

#include <vector>

#include "runtime/Geometry.h"
#include "runtime/Text.h"

namespace host {

struct CatalogueText {
    runtime::String id;  ///< exactly as it is looked up, with blanks
    runtime::String defaultText;
    runtime::String use;             ///< where the text is shown, for translators
    runtime::String dialog;          ///< for a control's caption, the form whose access keys it shares; else empty
    runtime::Twips buttonWidth = 0;  ///< width of the button that shows the text; 0 for other texts
    bool isPublished = false;        ///< part of this module's published state, where it is an unquoted comma field
};

/// All texts. An identifier with several defaults is listed once for each default. No form is loaded.
std::vector<CatalogueText> TextCatalogue();

}  // namespace host
