// Localises forms: chooses the user-interface font by the system's locale, sets a form's captions, colour and fonts,
// and centres the form on the screen. Home thread only.
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
/// A locale identifier divided by 1024 and rounded to the nearest integer, halves to even. The bits above the language,
/// for example those of a sort order, are not masked out.
std::int32_t SubLanguage(std::int32_t lcid);
/// The character set of the user's default locale; 0 if it is unknown.
std::int16_t UserCharset();

/// The rule that decided the user-interface font. The first six rules each belong to a system language. For any other
/// language, the font is the first installed face of a list, or else the system's own font.
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

/// Whether a choice by `rule` has released the device context that it received.
constexpr bool ReleasesContext(FontRule rule) {
    return rule == FontRule::kIconTitleFont || rule == FontRule::kStockFont;
}

/// Chooses the process's user-interface font by the system's locale and returns the deciding rule. `deviceContext` is a
/// context of `window`. It is released if ReleasesContext() is true for that rule. If the system's font cannot be read,
/// that error reaches the caller and the former font stays.
FontRule ChooseUiFont(runtime::NativeHandle window, runtime::NativeHandle deviceContext);
/// The same for a system with the locale `systemLcid`.
FontRule ChooseUiFontFor(std::int32_t systemLcid, runtime::NativeHandle window, runtime::NativeHandle deviceContext);

/// Localises a form and its controls:
/// - A form or control with a tag gets the caption under the tag; the current caption is the default.
/// - A light grey form gets the system's button colour.
/// - Each control gets the user-interface font without bold, and no tab stop.
/// Errors are ignored, except errors of loading the form, which reach the caller.
void LocaliseForm(runtime::Form& form);
/// The same for one control. `font` has the name, size and character set of the user-interface font. Properties that
/// the control refuses are skipped.
void LocaliseControl(runtime::Properties& control, const runtime::Font& font);

/// Centres a form: left and top become half the absolute difference between the screen's size and its own. A form
/// larger than the screen thus moves right and down. Error 384 if the form is minimised or maximised.
void SetForm(runtime::Form& form);

}  // namespace services
