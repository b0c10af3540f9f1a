#include "runtime/win32/AccessibleWindow.h"

#include <ole2.h>
// Include this header after ole2.h, because the header needs ole2.h.
#include <oleacc.h>

#include "runtime/win32/TrustedLibrary.h"

namespace runtime::win32 {
namespace {

/// Passes every call to the system's object. Exceptions: the name, the role and the description of the window itself.
/// The name is the unchanged text of the window. The system's object would remove a '&' from the text.
class AccessibleWindow final : public IAccessible {
 public:
    /// Takes over the reference `system`.
    AccessibleWindow(HWND window, IAccessible* system, LONG role, const String& description)
        : window_(window), system_(system), role_(role), description_(description) {}
    AccessibleWindow(const AccessibleWindow&) = delete;
    AccessibleWindow& operator=(const AccessibleWindow&) = delete;

    // The system's object has the other interfaces: the enumeration of children and the window's handle.
    STDMETHODIMP QueryInterface(REFIID id, void** object) override {
        if (id != IID_IUnknown && id != IID_IDispatch && id != IID_IAccessible)
            return system_->QueryInterface(id, object);
        *object = static_cast<IAccessible*>(this);
        AddRef();
        return S_OK;
    }
    STDMETHODIMP_(ULONG) AddRef() override { return static_cast<ULONG>(InterlockedIncrement(&references_)); }
    STDMETHODIMP_(ULONG) Release() override {
        const LONG left = InterlockedDecrement(&references_);
        if (left == 0) delete this;
        return static_cast<ULONG>(left);
    }

    STDMETHODIMP GetTypeInfoCount(UINT* count) override { return system_->GetTypeInfoCount(count); }
    STDMETHODIMP GetTypeInfo(UINT index, LCID locale, ITypeInfo** info) override {
        return system_->GetTypeInfo(index, locale, info);
    }
    STDMETHODIMP GetIDsOfNames(REFIID id, LPOLESTR* names, UINT count, LCID locale, DISPID* ids) override {
        return system_->GetIDsOfNames(id, names, count, locale, ids);
    }
    STDMETHODIMP Invoke(DISPID member, REFIID id, LCID locale, WORD flags, DISPPARAMS* arguments, VARIANT* result,
                        EXCEPINFO* exception, UINT* wrong) override {
        return system_->Invoke(member, id, locale, flags, arguments, result, exception, wrong);
    }

    STDMETHODIMP get_accRole(VARIANT child, VARIANT* role) override {
        if (!IsSelf(child)) return system_->get_accRole(child, role);
        role->vt = VT_I4;
        role->lVal = role_;
        return S_OK;
    }
    STDMETHODIMP get_accName(VARIANT child, BSTR* name) override {
        if (!IsSelf(child) || !IsWindow(window_)) return system_->get_accName(child, name);
        const int length = GetWindowTextLengthW(window_);
        *name = SysAllocStringLen(nullptr, static_cast<UINT>(length));
        if (!*name) return E_OUTOFMEMORY;
        GetWindowTextW(window_, *name, length + 1);
        return S_OK;
    }
    STDMETHODIMP get_accDescription(VARIANT child, BSTR* description) override {
        if (!IsSelf(child) || description_.empty()) return system_->get_accDescription(child, description);
        *description = SysAllocString(Wide(description_));
        return *description ? S_OK : E_OUTOFMEMORY;
    }

    STDMETHODIMP get_accParent(IDispatch** parent) override { return system_->get_accParent(parent); }
    STDMETHODIMP get_accChildCount(LONG* count) override { return system_->get_accChildCount(count); }
    STDMETHODIMP get_accChild(VARIANT id, IDispatch** child) override { return system_->get_accChild(id, child); }
    STDMETHODIMP get_accValue(VARIANT child, BSTR* value) override { return system_->get_accValue(child, value); }
    STDMETHODIMP get_accState(VARIANT child, VARIANT* state) override { return system_->get_accState(child, state); }
    STDMETHODIMP get_accHelp(VARIANT child, BSTR* help) override { return system_->get_accHelp(child, help); }
    STDMETHODIMP get_accHelpTopic(BSTR* file, VARIANT child, LONG* topic) override {
        return system_->get_accHelpTopic(file, child, topic);
    }
    STDMETHODIMP get_accKeyboardShortcut(VARIANT child, BSTR* keys) override {
        return system_->get_accKeyboardShortcut(child, keys);
    }
    STDMETHODIMP get_accFocus(VARIANT* child) override { return system_->get_accFocus(child); }
    STDMETHODIMP get_accSelection(VARIANT* children) override { return system_->get_accSelection(children); }
    STDMETHODIMP get_accDefaultAction(VARIANT child, BSTR* action) override {
        return system_->get_accDefaultAction(child, action);
    }
    STDMETHODIMP accSelect(LONG flags, VARIANT child) override { return system_->accSelect(flags, child); }
    STDMETHODIMP accLocation(LONG* left, LONG* top, LONG* width, LONG* height, VARIANT child) override {
        return system_->accLocation(left, top, width, height, child);
    }
    STDMETHODIMP accNavigate(LONG direction, VARIANT start, VARIANT* end) override {
        return system_->accNavigate(direction, start, end);
    }
    STDMETHODIMP accHitTest(LONG left, LONG top, VARIANT* child) override {
        return system_->accHitTest(left, top, child);
    }
    STDMETHODIMP accDoDefaultAction(VARIANT child) override { return system_->accDoDefaultAction(child); }
    STDMETHODIMP put_accName(VARIANT child, BSTR name) override { return system_->put_accName(child, name); }
    STDMETHODIMP put_accValue(VARIANT child, BSTR value) override { return system_->put_accValue(child, value); }

 private:
    ~AccessibleWindow() { system_->Release(); }

    static bool IsSelf(const VARIANT& child) { return child.vt == VT_I4 && child.lVal == CHILDID_SELF; }

    LONG references_ = 1;
    const HWND window_;
    IAccessible* const system_;
    const LONG role_;
    const String description_;
};

/// Returns the system's library, or null if the library is missing. The library stays loaded, because its objects may
/// outlive every window.
HMODULE AccessibilityLibrary() {
    static const HMODULE library = LoadTrusted(InSystemFolder(u"oleacc.dll")).Release();
    return library;
}

template <typename Function>
Function* AccessibilityEntry(const char* name) {
    return reinterpret_cast<Function*>(reinterpret_cast<void*>(GetProcAddress(AccessibilityLibrary(), name)));
}

}  // namespace

bool AsksForClientObject(LPARAM lParam) {
    return static_cast<LONG>(lParam) == OBJID_CLIENT;
}

LRESULT AnswerGetObject(HWND window, WPARAM wParam, LONG role, const String& description) {
    const auto create = AccessibilityEntry<decltype(CreateStdAccessibleObject)>("CreateStdAccessibleObject");
    const auto answerWith = AccessibilityEntry<decltype(LresultFromObject)>("LresultFromObject");
    void* system = nullptr;
    if (!create || !answerWith || FAILED(create(window, OBJID_CLIENT, IID_IAccessible, &system))) return 0;
    auto* const object =
        new AccessibleWindow(window, static_cast<IAccessible*>(system), role, NulsAsBlanks(description));
    const LRESULT answer = answerWith(IID_IAccessible, wParam, object);
    object->Release();
    return answer;
}

}  // namespace runtime::win32
