// Localises forms: chooses the user-interface font by the system's locale, and sets a form's captions, colour and
// fonts. Also centres a form on the screen. Call the functions only on the home thread.
#pragma once

#include <cstdint>

#include "runtime/NativeHandle.h"

namespace runtime {
struct Font;
class Form;
class Properties;
}  // namespace runtime

namespace services {

/// Returns the low ten bits of a locale identifier.
std::int32_t PrimaryLanguage(std::int32_t lcid);
/// Returns a locale identifier divided by 1024 and rounded to the nearest integer, halves to even. Does not mask out
/// the bits above the language, for example the bits of a sort order.
std::int32_t SubLanguage(std::int32_t lcid);
/// Returns the character set of the user's default locale; 0 if it is unknown.
std::int16_t UserCharset();

/// The rule that decided the user-interface font. Each of the first six rules belongs to a system language. For any
/// other language, the font is the first installed face of a list. If no face of the list is installed, the system's
/// own font is used.
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

/// True if a choice by `rule` has released the device context that was passed.
constexpr bool ReleasesContext(FontRule rule) {
    return rule == FontRule::kIconTitleFont || rule == FontRule::kStockFont;
}

/// Chooses the process's user-interface font by the system's locale and returns the deciding rule. `deviceContext` is a
/// context of `window`. The function releases the context if ReleasesContext() is true for the rule. If the system's
/// font cannot be read, throws the error and keeps the former font.
FontRule ChooseUiFont(runtime::NativeHandle window, runtime::NativeHandle deviceContext);
/// Does the same for a system with the locale `systemLcid`.
FontRule ChooseUiFontFor(std::int32_t systemLcid, runtime::NativeHandle window, runtime::NativeHandle deviceContext);

/// Localises a form and its controls:
/// - If a form or control has a tag, its caption becomes the text of the tag. The default text is the current caption.
/// - If a form is light grey, it gets the system's button colour.
/// - Each control gets the user-interface font without bold, and no tab stop.
/// Errors of the form's load reach the caller. All other errors are ignored.
void LocaliseForm(runtime::Form& form);
/// Does the same for one control. `font` has the name, size and character set of the user-interface font. Skips
/// properties that the control refuses.
void LocaliseControl(runtime::Properties& control, const runtime::Font& font);

/// Centres a form. Left and top become half the absolute difference between the screen's size and the form's size. A
/// form that is larger than the screen thus moves right and down. Error 384 if the form is minimised or maximised.
void SetForm(runtime::Form& form);

}  // namespace services
