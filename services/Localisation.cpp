#include "services/Localisation.h"

#include <cmath>
#include <utility>
#include <variant>

#include "runtime/Error.h"
#include "runtime/Form.h"
#include "runtime/LateBound.h"
#include "runtime/Numbers.h"
#include "runtime/Operation.h"
#include "runtime/Ports.h"
#include "runtime/ScopeGuard.h"
#include "runtime/Screen.h"
#include "services/MessageTexts.h"
#include "services/ProcessValues.h"

namespace services {
namespace {

using runtime::Font;
using runtime::NativeHandle;
using runtime::Properties;
using runtime::PropertyValue;

constexpr std::int32_t kPrimaryLanguageBits = 0x3FF;
constexpr double kLanguagesPerSubLanguage = 1024.0;

enum Language : std::int32_t { kChinese = 0x04, kJapanese = 0x11, kKorean = 0x12 };

constexpr std::int16_t kEastAsianSize = 9;
constexpr std::int16_t kWesternSize = 8;

/// The font for a language and sublanguage. The row with kAnyOther is for the remaining sublanguages of the language.
struct FixedFont {
    std::int32_t language;
    std::int32_t subLanguage;
    StringView name;
    FontRule rule;
    std::int16_t size;
    std::int16_t characterSet;
};

constexpr std::int32_t kAnyOther = -1;

constexpr StringView kKoreanFace = u"\uAD74\uB9BC";

constexpr FixedFont kFixedFonts[] = {
    {kChinese, 1, u"\u65B0\u7D30\u660E\u9AD4", FontRule::kTraditionalChinese, kEastAsianSize, 136},
    {kChinese, 2, u"\u5B8B\u4F53", FontRule::kSimplifiedChinese, kEastAsianSize, 134},
    {kChinese, kAnyOther, u"", FontRule::kOtherChinese, 0, 0},
    {kJapanese, kAnyOther, u"\uFF2D\uFF33 \uFF30\u30B4\u30B7\u30C3\u30AF", FontRule::kJapanese, kEastAsianSize, 128},
    {kKorean, 1, kKoreanFace, FontRule::kKorean, kEastAsianSize, 129},
    {kKorean, 2, kKoreanFace, FontRule::kKorean, kEastAsianSize, 129},
    {kKorean, kAnyOther, u"", FontRule::kOtherKorean, kEastAsianSize, 129},
};

constexpr StringView kWesternFaces[] = {u"MS Sans Serif", u"Arial", u"System"};

/// Returns the row for `lcid`; null if no row matches.
const FixedFont* FindFixed(std::int32_t lcid) {
    const std::int32_t language = PrimaryLanguage(lcid);
    const std::int32_t subLanguage = SubLanguage(lcid);
    for (const FixedFont& fixed : kFixedFonts) {
        if (fixed.language != language) continue;
        if (fixed.subLanguage == subLanguage || fixed.subLanguage == kAnyOther) return &fixed;
    }
    return nullptr;
}

struct FoundFace {
    FontRule rule;
    String name;
};

/// Returns the face of the system's own font. `context` is a context of `window`. Afterwards the context has its former
/// font again and is released.
FoundFace SystemFace(NativeHandle window, NativeHandle context) {
    runtime::FontsPort& fonts = runtime::CurrentPorts().fonts;
    const NativeHandle made = fonts.MakeIconTitleFont();
    const NativeHandle before = fonts.Select(context, made != 0 ? made : fonts.StockGuiFont());
    const runtime::ScopeGuard released([&] {
        fonts.Select(context, before);
        fonts.ReleaseContext(window, context);
        // The stock font must not be deleted.
        if (made != 0) fonts.Delete(made);
    });
    return {made != 0 ? FontRule::kIconTitleFont : FontRule::kStockFont, fonts.FaceName(context)};
}

FoundFace WesternFace(NativeHandle window, NativeHandle context) {
    for (const StringView face : kWesternFaces) {
        if (runtime::CurrentPorts().fonts.IsInstalled(face)) return {FontRule::kInstalledFace, String(face)};
    }
    return SystemFace(window, context);
}

/// Makes a font with the values of the process's font. A font object refuses an empty name and a size of 0 and then
/// keeps its own values. Therefore the font is usable even if no rule has chosen a face.
Font NewFont(const UiFont& uiFont) {
    Font font;
    runtime::PutFontProperty(font, u"Name", uiFont.name);
    runtime::PutFontProperty(font, u"Size", uiFont.size);
    runtime::PutFontProperty(font, u"Charset", uiFont.characterSet);
    return font;
}

void ApplyFont(Properties& control, const UiFont& uiFont, const Font& font) {
    const auto put = [&control](StringView name, const PropertyValue& value) {
        runtime::IgnoreErrors([&] { control.Put(name, value); });
    };
    const auto putOfFont = [&control](StringView object, StringView name, const PropertyValue& value) {
        runtime::IgnoreErrors([&] { control.PutOfFont(object, name, value); });
    };
    const PropertyValue name = uiFont.name;
    const PropertyValue newFont = font;
    const PropertyValue characterSet = uiFont.characterSet;
    const PropertyValue off = false;
    put(u"FontName", name);
    for (const StringView object : {u"Font", u"HeadFont", u"ControlFont"}) putOfFont(object, u"Name", name);
    put(u"Font", newFont);
    put(u"TabStop", off);
    put(u"HeadFont", newFont);
    put(u"Charset", characterSet);
    for (const StringView object : {u"Font", u"ControlFont"}) putOfFont(object, u"Charset", characterSet);
    put(u"FontBold", off);
    put(u"Bold", off);
}

void LocaliseCaption(Properties& control) {
    PropertyValue tag;
    PropertyValue caption;
    if (control.Get(u"Tag", tag) != runtime::kNoError || std::get<String>(tag).empty()) return;
    if (control.Get(u"Caption", caption) != runtime::kNoError) return;
    control.Put(u"Caption", GetLocalText(std::get<String>(caption), std::get<String>(tag)));
}

}  // namespace

std::int32_t PrimaryLanguage(std::int32_t lcid) {
    return lcid & kPrimaryLanguageBits;
}

std::int32_t SubLanguage(std::int32_t lcid) {
    return runtime::ToInt32(lcid / kLanguagesPerSubLanguage);
}

std::int16_t UserCharset() {
    runtime::LocalePort& locale = runtime::CurrentPorts().locale;
    return locale.CharsetOf(locale.UserDefaultLcid()).value_or(std::int16_t{0});
}

FontRule ChooseUiFont(NativeHandle window, NativeHandle deviceContext) {
    return ChooseUiFontFor(runtime::CurrentPorts().locale.SystemDefaultLcid(), window, deviceContext);
}

FontRule ChooseUiFontFor(std::int32_t systemLcid, NativeHandle window, NativeHandle deviceContext) {
    UiFont& uiFont = Values().uiFont;
    if (const FixedFont* const fixed = FindFixed(systemLcid)) {
        uiFont = {String(fixed->name), fixed->size, fixed->characterSet};
        return fixed->rule;
    }
    FoundFace face = WesternFace(window, deviceContext);
    uiFont = {std::move(face.name), kWesternSize, UserCharset()};
    return face.rule;
}

void LocaliseForm(runtime::Form& form) {
    using runtime::IgnoreErrors;
    const runtime::Operation operation;
    IgnoreErrors([&form] {
        const String tag = form.Tag();
        if (!tag.empty()) form.SetCaption(GetLocalText(form.Caption(), tag));
    });
    IgnoreErrors([&form] {
        if (form.BackColour() == runtime::kLightGrey) form.SetBackColour(runtime::kButtonFace);
    });
    const Font font = NewFont(Values().uiFont);
    for (const auto& control : form.Controls()) {
        runtime::ControlProperties properties(*control);
        LocaliseControl(properties, font);
    }
}

void LocaliseControl(Properties& control, const Font& font) {
    ApplyFont(control, Values().uiFont, font);
    runtime::IgnoreErrors([&] { LocaliseCaption(control); });
}

void SetForm(runtime::Form& form) {
    const runtime::Size screen = runtime::ScreenSize();
    form.Move(form.Left(), std::fabs(screen.height - form.Height()) / 2.0F);
    form.Move(std::fabs(screen.width - form.Width()) / 2.0F, form.Top());
}

}  // namespace services
