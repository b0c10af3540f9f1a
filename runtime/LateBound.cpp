#include "runtime/LateBound.h"

#include "runtime/Error.h"

namespace runtime {
namespace {

constexpr std::int16_t kMinSize = 1;
constexpr std::int16_t kMaxSize = 2160;

/// Stores `value` in `part`. Returns error 13 if `value` does not have the type of `part`. Does not convert `value`.
template <typename Part>
AccessError PutPart(Part& part, const PropertyValue& value) {
    const Part* const given = std::get_if<Part>(&value);
    if (!given) return kTypeMismatch;
    part = *given;
    return kNoError;
}

AccessError PutName(Font& font, const PropertyValue& value) {
    const String* const name = std::get_if<String>(&value);
    if (!name) return kTypeMismatch;
    if (name->empty()) return kInvalidPropertyValue;
    font.name = *name;
    return kNoError;
}

AccessError PutSize(Font& font, const PropertyValue& value) {
    const std::int16_t* const size = std::get_if<std::int16_t>(&value);
    if (!size) return kTypeMismatch;
    if (*size < kMinSize || *size > kMaxSize) return kInvalidPropertyValue;
    font.size = *size;
    return kNoError;
}

bool HasFont(const Control& control) {
    return control.Kind() != ControlKind::kPicture;
}

bool HasFontParts(const Control& control) {
    return HasFont(control) && control.Kind() != ControlKind::kStatusBar;
}

bool HasCaption(const Control& control) {
    return control.Kind() == ControlKind::kLabel || control.Kind() == ControlKind::kButton;
}

struct Property {
    StringView name;
    bool (*has)(const Control& control);
    PropertyValue (*get)(Control& control);
    AccessError (*put)(Control& control, const PropertyValue& value);
};

constexpr Property kProperties[] = {
    {u"Caption", HasCaption, [](Control& control) { return PropertyValue(control.Text()); },
     [](Control& control, const PropertyValue& value) {
         String caption;
         const AccessError error = PutPart(caption, value);
         if (error == kNoError) control.SetText(caption);
         return error;
     }},
    {u"Font", HasFont, [](Control& control) { return PropertyValue(control.Font()); },
     [](Control& control, const PropertyValue& value) {
         Font font;
         const AccessError error = PutPart(font, value);
         if (error == kNoError) control.SetFont(font);
         return error;
     }},
    {u"FontBold", HasFontParts, [](Control& control) { return PropertyValue(control.Font().bold); },
     [](Control& control, const PropertyValue& value) { return PutFontProperty(control, u"Font", u"Bold", value); }},
    {u"FontName", HasFontParts, [](Control& control) { return PropertyValue(control.Font().name); },
     [](Control& control, const PropertyValue& value) { return PutFontProperty(control, u"Font", u"Name", value); }},
    {u"TabStop", [](const Control& control) { return control.TakesFocus(); },
     [](Control& control) { return PropertyValue(control.TabStop()); },
     [](Control& control, const PropertyValue& value) {
         bool stop = false;
         const AccessError error = PutPart(stop, value);
         if (error == kNoError) control.SetTabStop(stop);
         return error;
     }},
    {u"Tag", [](const Control&) { return true; }, [](Control& control) { return PropertyValue(control.Tag()); },
     // A tag is read-only.
     [](Control&, const PropertyValue&) { return AccessError{kPropertyNotSupported}; }},
};

/// Returns null if the control does not have the property.
const Property* Find(const Control& control, StringView name) {
    for (const Property& property : kProperties) {
        if (property.name == name) return property.has(control) ? &property : nullptr;
    }
    return nullptr;
}

/// Returns the result of `access`, or the number of the error that `access` throws.
template <typename Access>
AccessError ResultOf(Access&& access) {
    try {
        return access();
    } catch (const Error& error) {
        return error.Number();
    }
}

}  // namespace

AccessError PutProperty(Control& control, StringView name, const PropertyValue& value) {
    const Property* const property = Find(control, name);
    if (!property) return kPropertyNotSupported;
    return ResultOf([&] { return property->put(control, value); });
}

AccessError GetProperty(Control& control, StringView name, PropertyValue& value) {
    const Property* const property = Find(control, name);
    if (!property) return kPropertyNotSupported;
    return ResultOf([&] {
        value = property->get(control);
        return kNoError;
    });
}

AccessError PutFontProperty(Control& control, StringView fontProperty, StringView name, const PropertyValue& value) {
    if (fontProperty != u"Font" || !HasFont(control)) return kPropertyNotSupported;
    return ResultOf([&] {
        Font font = control.Font();
        const AccessError error = PutFontProperty(font, name, value);
        if (error == kNoError) control.SetFont(font);
        return error;
    });
}

AccessError PutFontProperty(Font& font, StringView name, const PropertyValue& value) {
    if (name == u"Name") return PutName(font, value);
    if (name == u"Size") return PutSize(font, value);
    if (name == u"Charset") return PutPart(font.charset, value);
    if (name == u"Bold") return PutPart(font.bold, value);
    return kPropertyNotSupported;
}

}  // namespace runtime
