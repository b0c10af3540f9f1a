#include "tests/windows/Accessible.h"

#include <ole2.h>
// This header needs ole2.h.
#include <oleacc.h>

#include <functional>

namespace tests {
namespace {

std::string TakeText(HRESULT result, BSTR text) {
    if (result != S_OK || !text) return "";
    const runtime::String taken = runtime::win32::ToString(text, SysStringLen(text));
    SysFreeString(text);
    return runtime::ToUtf8(taken);
}

VARIANT Self() {
    VARIANT self{};
    self.vt = VT_I4;
    self.lVal = CHILDID_SELF;
    return self;
}

std::string ClassOf(HWND window) {
    wchar_t name[64]{};
    GetClassNameW(window, name, 64);
    return runtime::ToUtf8(runtime::win32::ToString(name));
}

std::string RoleOf(IAccessible& object, HWND window) {
    VARIANT role{};
    if (object.get_accRole(Self(), &role) != S_OK || role.vt != VT_I4) return "no role";
    switch (role.lVal) {
        case ROLE_SYSTEM_DIALOG:
            return "dialog";
        case ROLE_SYSTEM_STATICTEXT:
            return "static text";
        case ROLE_SYSTEM_TEXT:
            return "text";
        case ROLE_SYSTEM_CLIENT:
            return ClassOf(window);
        default:
            return ClassOf(window) + " " + std::to_string(role.lVal);
    }
}

std::string StatesOf(IAccessible& object) {
    VARIANT state{};
    if (object.get_accState(Self(), &state) != S_OK || state.vt != VT_I4) return " no state";
    std::string states;
    if (state.lVal & STATE_SYSTEM_FOCUSED) states += " focused";
    if (state.lVal & STATE_SYSTEM_UNAVAILABLE) states += " unavailable";
    if (state.lVal & STATE_SYSTEM_INVISIBLE) states += " invisible";
    return states;
}

}  // namespace

std::string AccessibleElement(HWND window) {
    IAccessible* object = nullptr;
    if (FAILED(AccessibleObjectFromWindow(window, static_cast<DWORD>(OBJID_CLIENT), IID_IAccessible,
                                          reinterpret_cast<void**>(&object))))
        return "no object";
    BSTR name = nullptr;
    BSTR value = nullptr;
    BSTR description = nullptr;
    const HRESULT nameResult = object->get_accName(Self(), &name);
    const HRESULT valueResult = object->get_accValue(Self(), &value);
    const HRESULT descriptionResult = object->get_accDescription(Self(), &description);
    std::string line = RoleOf(*object, window) + " [" + TakeText(nameResult, name) + "]" + StatesOf(*object);
    object->Release();
    if (const std::string text = TakeText(valueResult, value); !text.empty()) line += " value [" + text + "]";
    if (const std::string text = TakeText(descriptionResult, description); !text.empty())
        line += " description [" + text + "]";
    return line;
}

std::vector<std::string> AccessibleElementsOf(HWND dialog) {
    std::vector<std::string> elements = {AccessibleElement(dialog)};
    for (HWND child = GetWindow(dialog, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT)) {
        if (GetWindowLongW(child, GWL_STYLE) & WS_VISIBLE) elements.push_back(AccessibleElement(child));
    }
    return elements;
}

}  // namespace tests
