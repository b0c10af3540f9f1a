// The list of all texts that the component asks the suite's reader for: what a language file has to translate. It is
// made from where the texts stand, the tables of the services and the designs of the forms, so that it cannot miss one.
#pragma once

#include <vector>

#include "runtime/Geometry.h"
#include "runtime/Text.h"

namespace host {

struct CatalogueText {
    runtime::String id;  ///< as it is asked for
    runtime::String defaultText;
    runtime::String use;             ///< where it is shown, for translators
    runtime::String dialog;          ///< for a control's caption: the form whose access keys it shares; else empty
    runtime::Twips buttonWidth = 0;  ///< of the button that shows it; 0 for other texts
    bool isPublished = false;        ///< stands between commas, as it is, in the state that the suite's modules read
};

/// An identifier that is used with several defaults is there with each. No form is loaded.
std::vector<CatalogueText> TextCatalogue();

}  // namespace host
