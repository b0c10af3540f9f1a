// Properties of controls and fonts by their names, as late-bound code reaches them: whether a control has a property is
// found out by asking. A refusal is an everyday answer there, so it comes back as the number of its error and
// is not thrown.
#pragma once

#include <cstdint>
#include <variant>

#include "runtime/Control.h"

namespace runtime {

using PropertyValue = std::variant<bool, std::int16_t, String, Font>;

/// The number of the error that an access raises in the classic runtime; kNoError when it succeeds.
using AccessError = std::int32_t;
inline constexpr AccessError kNoError = 0;

// Controls have "Tag" (only to be read); all but pictures "Font"; all but pictures and status bars "FontName" and
// "FontBold"; labels and buttons "Caption"; those that take the focus "TabStop". Errors: 438 for a property that a
// control or font does not have, 13 for a value of another type than the property's, and what setting it raises.

AccessError PutProperty(Control& control, StringView name, const PropertyValue& value);
/// Leaves `value` alone when it fails.
AccessError GetProperty(Control& control, StringView name, PropertyValue& value);
/// Sets the property `name` of the font object that the control has as its property `fontProperty`.
AccessError PutFontProperty(Control& control, StringView fontProperty, StringView name, const PropertyValue& value);

/// Fonts have "Name", "Size" (whole points), "Charset" and "Bold". Error 380 for an empty name and for a size outside
/// 1..2160; the font then stays as it is.
AccessError PutFontProperty(Font& font, StringView name, const PropertyValue& value);

/// What late-bound code reaches of an object, whatever that is.
class Properties {
 public:
    virtual ~Properties() = default;

    virtual AccessError Put(StringView name, const PropertyValue& value) = 0;
    virtual AccessError Get(StringView name, PropertyValue& value) = 0;
    /// Sets the property `name` of the font object that is the property `fontProperty`.
    virtual AccessError PutOfFont(StringView fontProperty, StringView name, const PropertyValue& value) = 0;
};

/// Those of a control, which must outlive this.
class ControlProperties final : public Properties {
 public:
    explicit ControlProperties(Control& control) : control_(control) {}

    AccessError Put(StringView name, const PropertyValue& value) override { return PutProperty(control_, name, value); }
    AccessError Get(StringView name, PropertyValue& value) override { return GetProperty(control_, name, value); }
    AccessError PutOfFont(StringView fontProperty, StringView name, const PropertyValue& value) override {
        return PutFontProperty(control_, fontProperty, name, value);
    }

 private:
    Control& control_;
};

}  // namespace runtime
