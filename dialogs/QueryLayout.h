// The arithmetic that fits the query dialog to its prompt, apart from any window: how high the form becomes, and where
// its controls are placed in the client area that results. All lengths are in twips.
#pragma once

#include <cstdint>

#include "runtime/Geometry.h"

namespace dialogs {

/// What the user is asked for. Any other number means kText.
enum QueryKind : std::int32_t { kText = 1, kCombo = 2, kDropDown = 3, kTextBlock = 4, kList = 5 };

/// What a form's height depends on.
struct QueryMeasures {
    std::int32_t kind = kText;
    runtime::Twips labelWidth = 0;   ///< above 120
    runtime::Twips promptWidth = 0;  ///< of its widest line, not wrapped
    std::int32_t promptPieces = 0;   ///< between line breaks
    runtime::Twips lineHeight = 0;
    /// Of the text block, the list box, or, for every other kind, the single-line text box: combo boxes are placed by
    /// its height and not by their own.
    runtime::Twips inputHeight = 0;
    runtime::Twips buttonHeight = 0;  ///< of the extra button; meant only when it is shown
    bool showsButton = false;
    runtime::Twips screenHeight = 0;
};

/// The outer height of the form. Error 6 when it goes beyond 32 bits.
std::int32_t QueryFormHeight(const QueryMeasures& measures);

/// The places of the controls, one above the other, in a client area `innerHeight` high.
struct QueryPlaces {
    runtime::Twips labelHeight = 0;
    runtime::Twips inputTop = 0;
    runtime::Twips buttonTop = 0;  ///< meant only when the extra button is shown
    bool operator==(const QueryPlaces&) const = default;
};

QueryPlaces PlacesInQuery(runtime::Twips innerHeight, const QueryMeasures& measures);

}  // namespace dialogs
