// Fits the query dialog to the prompt. Calculates the height of the form and the places of the controls in the client
// area. The code uses no window. All lengths are in twips.
#pragma once

#include <cstdint>

#include "runtime/Geometry.h"

namespace dialogs {

/// The kind of input. Any other number means kText.
enum QueryKind : std::int32_t { kText = 1, kCombo = 2, kDropDown = 3, kTextBlock = 4, kList = 5 };

/// The values on which the form's height depends.
struct QueryMeasures {
    std::int32_t kind = kText;
    runtime::Twips labelWidth = 0;   ///< more than 120
    runtime::Twips promptWidth = 0;  ///< width of the widest line without wrapping
    std::int32_t promptPieces = 0;   ///< number of pieces between line breaks
    runtime::Twips lineHeight = 0;
    /// Height of the text block or the list box. For all other kinds, the height of the single-line text box. The
    /// places of the combo boxes also depend on this height.
    runtime::Twips inputHeight = 0;
    runtime::Twips buttonHeight = 0;  ///< height of the extra button; used only if the button is shown
    bool showsButton = false;
    runtime::Twips screenHeight = 0;
};

/// Returns the outer height of the form. Throws error 6 if the height exceeds 32 bits.
std::int32_t QueryFormHeight(const QueryMeasures& measures);

/// The places of the controls in the client area, from top to bottom.
struct QueryPlaces {
    runtime::Twips labelHeight = 0;
    runtime::Twips inputTop = 0;
    runtime::Twips buttonTop = 0;  ///< valid only if the extra button is shown
    bool operator==(const QueryPlaces&) const = default;
};

/// `innerHeight` is the height of the client area.
QueryPlaces PlacesInQuery(runtime::Twips innerHeight, const QueryMeasures& measures);

}  // namespace dialogs
