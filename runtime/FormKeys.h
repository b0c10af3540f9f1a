// The keyboard's rules: what a form does with a key before the focused control gets it. The form's own handlers come
// first and may swallow the key. A key without a rule is the control's.
//
// A key that walks the focus, presses a button or takes a list away is used up and does not become a character. A key
// that is held walks on but presses nothing, because it may be held since another form had the focus.
//
// Two rules are not in the table:
// - Alt with a letter presses the button whose caption marks the letter. When several mark it, the focus walks among
//   them and none is pressed. No other key with Alt or Ctrl has a rule.
// - An Enter that is held writes lines only where it was pressed: in a text block of this form.
#pragma once

#include <array>

#include "runtime/WindowsPort.h"

namespace runtime {

enum class KeyAction {
    kNone,         ///< the key is the control's
    kWalk,         ///< moves the focus on; back with Shift
    kWalkOn,       ///< moves the focus on
    kWalkBack,     ///< moves the focus back
    kPress,        ///< presses the focused button
    kPressCancel,  ///< presses the cancel button; as kNone when the form shows none
    kWrite,        ///< becomes a character
    kChooseItem,   ///< chooses the item of the list, and becomes a character
    kCloseList,    ///< takes the list away; item and text are those of before
};

struct KeyRule {
    KeyCode key;
    KeyAction onButton;    ///< the focus is on a button
    KeyAction onOpenList;  ///< the list of the focused control has dropped down
    KeyAction elsewhere;
};

constexpr auto KeyRules() {
    using enum KeyAction;
    // clang-format off
    return std::array{
        //      key         on a button   on an open list  elsewhere
        KeyRule{kKeyTab,    kWalk,        kWalk,           kWalk},
        KeyRule{kKeyLeft,   kWalkBack,    kNone,           kNone},
        KeyRule{kKeyUp,     kWalkBack,    kNone,           kNone},
        KeyRule{kKeyRight,  kWalkOn,      kNone,           kNone},
        KeyRule{kKeyDown,   kWalkOn,      kNone,           kNone},
        KeyRule{kKeyEnter,  kPress,       kChooseItem,     kWrite},
        KeyRule{kKeySpace,  kPress,       kNone,           kNone},
        KeyRule{kKeyEscape, kPressCancel, kCloseList,      kPressCancel},
    };
    // clang-format on
}

}  // namespace runtime
