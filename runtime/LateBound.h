// Accesses properties of controls and fonts by name, as late-bound code does. Late-bound code tries a property to find
// out whether a control has it. Failures are therefore common. The functions return runtime errors as numbers and do
// not throw them.
#pragma once

#include <cstdint>
#include <variant>

#include "runtime/Control.h"

namespace runtime {

using PropertyValue = std::variant<bool, std::int16_t, String, Font>;

/// The number of the error that the classic runtime would raise; kNoError on success.
using AccessError = std::int32_t;
inline constexpr AccessError kNoError = 0;

// Properties of controls:
// - all controls: "Tag" (read-only)
// - all except pictures: "Font"
// - all except pictures and status bars: "FontName", "FontBold"
// - labels and buttons: "Caption"
// - controls that can have the focus: "TabStop"
//
// Errors: 438 for a property that the control or font does not have, and for setting "Tag". 13 for a value of the wrong
// type. The errors of the property's setter are also possible.

AccessError PutProperty(Control& control, StringView name, const PropertyValue& value);
/// Reads the property `name`. On failure, `value` is unchanged.
AccessError GetProperty(Control& control, StringView name, PropertyValue& value);
/// Sets the property `name` of the font object in the control's property `fontProperty`. Error 438 if `fontProperty` is
/// not "Font".
AccessError PutFontProperty(Control& control, StringView fontProperty, StringView name, const PropertyValue& value);

/// Sets a property of a font: "Name", "Size" (whole points), "Charset" or "Bold". Error 380 for an empty name and for a
/// size outside 1..2160. On failure, the font is unchanged.
AccessError PutFontProperty(Font& font, StringView name, const PropertyValue& value);

/// The properties of an object of any kind.
class Properties {
 public:
    virtual ~Properties() = default;

    virtual AccessError Put(StringView name, const PropertyValue& value) = 0;
    virtual AccessError Get(StringView name, PropertyValue& value) = 0;
    /// Sets the property `name` of the font object in the property `fontProperty`.
    virtual AccessError PutOfFont(StringView fontProperty, StringView name, const PropertyValue& value) = 0;
};

/// The properties of a control. The control must outlive this object.
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
