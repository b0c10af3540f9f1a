#include "tests/windows/WindowTexts.h"

#include <gtest/gtest.h>
#include <oleacc.h>

#include "runtime/win32/Handle.h"

namespace tests {

bool IsClass(HWND window, std::wstring_view name) {
    wchar_t its[64]{};
    return name == std::wstring_view(its, static_cast<std::size_t>(GetClassNameW(window, its, 64)));
}

HFONT FontOf(HWND window) {
    return reinterpret_cast<HFONT>(SendMessageW(window, WM_GETFONT, 0, 0));
}

LOGFONTW FontDescriptionOf(HWND window) {
    LOGFONTW description{};
    EXPECT_NE(GetObjectW(FontOf(window), sizeof description, &description), 0);
    return description;
}

runtime::String AccessibleNameOf(HWND window) {
    IAccessible* accessible = nullptr;
    if (FAILED(AccessibleObjectFromWindow(window, static_cast<DWORD>(OBJID_CLIENT), IID_IAccessible,
                                          reinterpret_cast<void**>(&accessible))))
        return u"(no object)";
    VARIANT self{};
    self.vt = VT_I4;
    self.lVal = CHILDID_SELF;
    BSTR name = nullptr;
    const HRESULT result = accessible->get_accName(self, &name);
    accessible->Release();
    if (result != S_OK || !name) return u"(no name)";
    const runtime::String text = runtime::win32::ToString(name);
    SysFreeString(name);
    return text;
}

}  // namespace tests
