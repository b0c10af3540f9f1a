// Defines the keyboard rules: what a form does with a key before its focused control gets the key. The form's own
// handlers run first and may consume the key. A key without a rule is passed to the control.
//
// If a key moves the focus, presses a button or cancels a list, the form consumes the key, and the key produces no
// character. A held key continues to move the focus. A held Enter, Space or Escape presses no button, because the user
// may have pressed the key in another form.
//
// Three rules are not in the table:
// - Alt with a letter presses the button whose caption marks the letter. If several captions mark it, the focus moves
//   to the next of these buttons and no button is pressed.
// - Ctrl+Tab inserts a tab into a text block. Other keys with Alt or Ctrl have no rule.
// - A held Enter inserts lines only in a text block, and only if Enter was pressed in this form.
#pragma once

#include <array>

#include "runtime/WindowsPort.h"

namespace runtime {

enum class KeyAction {
    kNone,         ///< passes the key to the control
    kWalk,         ///< moves the focus to the next control, or with Shift to the previous control
    kWalkOn,       ///< moves the focus to the next control
    kWalkBack,     ///< moves the focus to the previous control
    kWalkLeft,     ///< like kWalkBack; in a mirrored form like kWalkOn
    kWalkRight,    ///< like kWalkOn; in a mirrored form like kWalkBack
    kPress,        ///< presses the focused button
    kPressCancel,  ///< presses the cancel button; like kNone if the form shows no cancel button
    kWrite,        ///< produces the key's character
    kChooseItem,   ///< closes the list, selects the highlighted item, and produces the key's character
    kWriteTab,     ///< produces the tab character
    kCloseList,    ///< closes the list and restores the previous item and text
};

struct KeyRule {
    KeyCode key;
    KeyAction onButton;    ///< the focus is on a button
    KeyAction onOpenList;  ///< the drop-down list of the focused control is open
    KeyAction elsewhere;
};

constexpr auto KeyRules() {
    using enum KeyAction;
    // clang-format off
    return std::array{
        //      key         on a button   on an open list  elsewhere
        KeyRule{kKeyTab,    kWalk,        kWalk,           kWalk},
        KeyRule{kKeyLeft,   kWalkLeft,    kNone,           kNone},
        KeyRule{kKeyUp,     kWalkBack,    kNone,           kNone},
        KeyRule{kKeyRight,  kWalkRight,   kNone,           kNone},
        KeyRule{kKeyDown,   kWalkOn,      kNone,           kNone},
        KeyRule{kKeyEnter,  kPress,       kChooseItem,     kWrite},
        KeyRule{kKeySpace,  kPress,       kNone,           kNone},
        KeyRule{kKeyEscape, kPressCancel, kCloseList,      kPressCancel},
    };
    // clang-format on
}

}  // namespace runtime
