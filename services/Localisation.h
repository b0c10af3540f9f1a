// Forms in the user's language: the font that can show it, chosen from the system's locale; a form's captions, colour
// and fonts; its place in the middle of the screen.
#pragma once

#include <cstdint>

#include "runtime/NativeHandle.h"

namespace runtime {
struct Font;
class Form;
class Properties;
}  // namespace runtime

namespace services {

/// The low ten bits of a locale identifier.
std::int32_t PrimaryLanguage(std::int32_t lcid);
/// A locale identifier divided by 1024 and rounded to the nearest, halves to even. Bits above the language, as those
/// of a sort order, are part of it.
std::int32_t SubLanguage(std::int32_t lcid);
/// The character set of the user's default locale, 0 when it cannot be found.
std::int16_t UserCharset();

/// What decided the user-interface font. The first six name the system's language; under any other one it is the first
/// installed face of a list, or else the system's own font.
enum class FontRule {
    kTraditionalChinese,
    kSimplifiedChinese,
    kOtherChinese,
    kJapanese,
    kKorean,
    kOtherKorean,
    kInstalledFace,
    kIconTitleFont,
    kStockFont,
};

/// The choice that `rule` decided has released the context that it was given.
constexpr bool ReleasesContext(FontRule rule) {
    return rule == FontRule::kIconTitleFont || rule == FontRule::kStockFont;
}

/// Decides the process's user-interface font by the system's locale. `deviceContext`, a context of `window`, is
/// released if the deciding rule is one that does so, and only then. Errors of the fonts pass; the former font stays.
FontRule ChooseUiFont(runtime::NativeHandle window, runtime::NativeHandle deviceContext);
/// The same as it is on a system of the locale `systemLcid`.
FontRule ChooseUiFontFor(std::int32_t systemLcid, runtime::NativeHandle window, runtime::NativeHandle deviceContext);

/// Gives a form and its controls the captions of their tags, the current caption being the default, and all the
/// controls the user-interface font without bold, and no tab stop. Turns a light grey form into the system's button
/// colour. What fails is passed over, but for the form's loading, whose errors pass.
void LocaliseForm(runtime::Form& form);
/// The same for one control; `font` is a font with the name, size and character set of the user-interface font. A
/// control has few of the properties that are tried: it refuses the others, and the next one is tried.
void LocaliseControl(runtime::Properties& control, const runtime::Font& font);

/// Moves a form to half the difference between the screen's size and its own. A form that is larger than the screen
/// moves down and right. Error 384 while it is minimised or maximised.
void SetForm(runtime::Form& form);

}  // namespace services
