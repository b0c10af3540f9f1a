// Implements a text box with one line or many lines.
#pragma once

#include "runtime/win32/Win32Control.h"

namespace runtime::win32 {

class Win32TextBox final : public Win32Control, private NativeEdit {
 public:
    Win32TextBox(Win32Window& parent, Win32Windows& system, const ControlLook& look, int id);

    void SetText(const String& text) override;
    NativeEdit* Edit() override { return this; }
    Notice NoticeOf(WORD code) override;

 private:
    String Text() override { return TextOf(Window()); }
    TextRange Selection() override { return SelectionOf(Window()); }
    void SetSelection(TextRange range) override { SelectIn(Window(), range); }
    void Write(const String& text) override { WriteInto(Window(), text); }

    bool isSetting_ = false;
};

}  // namespace runtime::win32
