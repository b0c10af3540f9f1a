// Implements a list box.
#pragma once

#include "runtime/win32/ListExtent.h"
#include "runtime/win32/Win32Control.h"

namespace runtime::win32 {

class Win32ListBox final : public Win32Control, private NativeList {
 public:
    Win32ListBox(Win32Window& parent, Win32Windows& system, const ControlLook& look, int id);

    void SetBounds(const Rect& bounds) override;
    void SetText(const String& /*text*/) override {}
    void SetFont(const Font& font) override;
    NativeList* List() override { return this; }
    Notice NoticeOf(WORD code) override;
    int ChosenItem() override;

 private:
    void Add(const String& item) override;
    void SetRedraw(bool redraws) override;
    void Clear() override;
    void Choose(int index) override;
    String TextOfItem(int item) const;

    Rect bounds_;
    ListExtent extent_;
};

}  // namespace runtime::win32
