// Implements a list box.
#pragma once

#include "runtime/win32/Win32List.h"

namespace runtime::win32 {

class Win32ListBox final : public Win32List {
 public:
    Win32ListBox(Win32Window& parent, Win32Windows& system, const ControlLook& look, int id);

    void SetBounds(const Rect& bounds) override;
    void SetText(const String& /*text*/) override {}
    Notice NoticeOf(WORD code) override;

 private:
    void Clear() override;

    Rect bounds_;
};

}  // namespace runtime::win32
