// Lists all texts that the component looks up in the suite's reader. A language file translates these texts. The list
// is complete, because the code builds it from the tables of the services and the designs of the forms.
#pragma once

#include <vector>

#include "runtime/Geometry.h"
#include "runtime/Text.h"

namespace host {

struct CatalogueText {
    runtime::String id;  ///< the exact identifier, including blanks
    runtime::String defaultText;
    runtime::String use;             ///< where the text is shown, for translators
    runtime::String dialog;          ///< for a control's caption, the form that contains the control; else empty
    runtime::Twips buttonWidth = 0;  ///< width of the button that shows the text; 0 for other texts
    bool isPublished = false;        ///< true if the published state of this module can contain the text, unquoted
};

/// Returns all texts. If an identifier has several defaults, the list contains an entry for each default. Loads no
/// form.
std::vector<CatalogueText> TextCatalogue();

}  // namespace host
