#include "runtime/win32/AccessibleWindow.h"

#include <ole2.h>
// Include this header after ole2.h, because the header needs ole2.h.
#include <oleacc.h>

#include "runtime/win32/TrustedLibrary.h"

namespace runtime::win32 {
namespace {

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

/// Loads the type information of IAccessible from the system's library.
HRESULT DescribeAccessible(ITypeInfo** info) {
    *info = nullptr;
    wchar_t path[MAX_PATH];
    if (!GetModuleFileNameW(AccessibilityLibrary(), path, MAX_PATH)) return TYPE_E_CANTLOADLIBRARY;
    ITypeLib* library = nullptr;
    HRESULT result = LoadTypeLib(path, &library);
    if (FAILED(result)) return result;
    result = library->GetTypeInfoOfGuid(IID_IAccessible, info);
    library->Release();
    return result;
}

/// Passes most calls to the system's accessible object. This object itself returns the role, the name, the description
/// and the keyboard shortcut of the window. The name is the unchanged text of the window. The system's object would
/// remove a '&' from the text and report it as a shortcut.
///
/// If QueryInterface returned an interface of the system's object, the client would call the system's object directly.
/// Therefore this object also implements IEnumVARIANT and IOleWindow.
class AccessibleWindow final : public IAccessible, public IEnumVARIANT, public IOleWindow {
 public:
    /// Takes over the references `system` and `children`.
    AccessibleWindow(HWND window, IAccessible* system, IEnumVARIANT* children, LONG role, const String& description)
        : window_(window), system_(system), children_(children), role_(role), description_(description) {}
    AccessibleWindow(const AccessibleWindow&) = delete;
    AccessibleWindow& operator=(const AccessibleWindow&) = delete;

    STDMETHODIMP QueryInterface(REFIID id, void** object) override {
        *object = Interface(id);
        if (!*object) return E_NOINTERFACE;
        AddRef();
        return S_OK;
    }
    STDMETHODIMP_(ULONG) AddRef() override { return static_cast<ULONG>(InterlockedIncrement(&references_)); }
    STDMETHODIMP_(ULONG) Release() override {
        const LONG left = InterlockedDecrement(&references_);
        if (left == 0) delete this;
        return static_cast<ULONG>(left);
    }

    STDMETHODIMP GetTypeInfoCount(UINT* count) override {
        *count = 1;
        return S_OK;
    }
    STDMETHODIMP GetTypeInfo(UINT index, LCID /*locale*/, ITypeInfo** info) override {
        if (index == 0) return DescribeAccessible(info);
        *info = nullptr;
        return DISP_E_BADINDEX;
    }
    STDMETHODIMP GetIDsOfNames(REFIID /*id*/, LPOLESTR* names, UINT count, LCID /*locale*/, DISPID* ids) override {
        ITypeInfo* info = nullptr;
        HRESULT result = DescribeAccessible(&info);
        if (FAILED(result)) return result;
        result = DispGetIDsOfNames(info, names, count, ids);
        info->Release();
        return result;
    }
    STDMETHODIMP Invoke(DISPID member, REFIID /*id*/, LCID /*locale*/, WORD flags, DISPPARAMS* arguments,
                        VARIANT* value, EXCEPINFO* exception, UINT* wrong) override {
        ITypeInfo* info = nullptr;
        HRESULT result = DescribeAccessible(&info);
        if (FAILED(result)) return result;
        result = DispInvoke(static_cast<IAccessible*>(this), info, member, flags, arguments, value, exception, wrong);
        info->Release();
        return result;
    }

    STDMETHODIMP get_accRole(VARIANT child, VARIANT* role) override {
        if (!IsSelf(child)) return system_->get_accRole(child, role);
        role->vt = VT_EMPTY;
        if (!IsWindow(window_)) return CO_E_OBJNOTCONNECTED;
        role->vt = VT_I4;
        role->lVal = role_;
        return S_OK;
    }
    STDMETHODIMP get_accName(VARIANT child, BSTR* name) override {
        if (!IsSelf(child)) return system_->get_accName(child, name);
        *name = nullptr;
        if (!IsWindow(window_)) return CO_E_OBJNOTCONNECTED;
        // The text may be shorter than its reported length.
        const int longest = GetWindowTextLengthW(window_);
        const BSTR text = SysAllocStringLen(nullptr, static_cast<UINT>(longest));
        if (!text) return E_OUTOFMEMORY;
        const int length = GetWindowTextW(window_, text, longest + 1);
        if (length > 0) *name = SysAllocStringLen(text, static_cast<UINT>(length));
        SysFreeString(text);
        if (length <= 0) return S_FALSE;
        return *name ? S_OK : E_OUTOFMEMORY;
    }
    STDMETHODIMP get_accDescription(VARIANT child, BSTR* description) override {
        if (!IsSelf(child)) return system_->get_accDescription(child, description);
        *description = nullptr;
        if (!IsWindow(window_)) return CO_E_OBJNOTCONNECTED;
        if (description_.empty()) return S_FALSE;
        *description = SysAllocString(Wide(description_));
        return *description ? S_OK : E_OUTOFMEMORY;
    }
    STDMETHODIMP get_accKeyboardShortcut(VARIANT child, BSTR* keys) override {
        if (!IsSelf(child)) return system_->get_accKeyboardShortcut(child, keys);
        *keys = nullptr;
        return IsWindow(window_) ? S_FALSE : CO_E_OBJNOTCONNECTED;
    }

    STDMETHODIMP Next(ULONG count, VARIANT* children, ULONG* taken) override {
        return children_->Next(count, children, taken);
    }
    STDMETHODIMP Skip(ULONG count) override { return children_->Skip(count); }
    STDMETHODIMP Reset() override { return children_->Reset(); }
    STDMETHODIMP Clone(IEnumVARIANT** copy) override { return children_->Clone(copy); }

    STDMETHODIMP GetWindow(HWND* window) override {
        *window = window_;
        return S_OK;
    }
    STDMETHODIMP ContextSensitiveHelp(BOOL /*enters*/) override { return E_NOTIMPL; }

    STDMETHODIMP get_accParent(IDispatch** parent) override { return system_->get_accParent(parent); }
    STDMETHODIMP get_accChildCount(LONG* count) override { return system_->get_accChildCount(count); }
    STDMETHODIMP get_accChild(VARIANT id, IDispatch** child) override { return system_->get_accChild(id, child); }
    STDMETHODIMP get_accValue(VARIANT child, BSTR* value) override { return system_->get_accValue(child, value); }
    STDMETHODIMP get_accState(VARIANT child, VARIANT* state) override { return system_->get_accState(child, state); }
    STDMETHODIMP get_accHelp(VARIANT child, BSTR* help) override { return system_->get_accHelp(child, help); }
    STDMETHODIMP get_accHelpTopic(BSTR* file, VARIANT child, LONG* topic) override {
        return system_->get_accHelpTopic(file, child, topic);
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
    ~AccessibleWindow() {
        if (children_) children_->Release();
        system_->Release();
    }

    /// Returns the interface `id` of this object, or null.
    void* Interface(REFIID id) {
        if (id == IID_IUnknown || id == IID_IDispatch || id == IID_IAccessible) return static_cast<IAccessible*>(this);
        if (id == IID_IEnumVARIANT && children_) return static_cast<IEnumVARIANT*>(this);
        return id == IID_IOleWindow ? static_cast<IOleWindow*>(this) : nullptr;
    }

    static bool IsSelf(const VARIANT& child) { return child.vt == VT_I4 && child.lVal == CHILDID_SELF; }

    LONG references_ = 1;
    const HWND window_;
    IAccessible* const system_;
    IEnumVARIANT* const children_;  ///< the system's object; null if the object does not enumerate its children
    const LONG role_;
    const String description_;
};

}  // namespace

bool AsksForClientObject(LPARAM lParam) {
    return static_cast<LONG>(lParam) == OBJID_CLIENT;
}

LRESULT AnswerGetObject(HWND window, WPARAM wParam, LONG role, const String& description) {
    const auto create = AccessibilityEntry<decltype(CreateStdAccessibleObject)>("CreateStdAccessibleObject");
    const auto answerWith = AccessibilityEntry<decltype(LresultFromObject)>("LresultFromObject");
    void* created = nullptr;
    if (!create || !answerWith || FAILED(create(window, OBJID_CLIENT, IID_IAccessible, &created))) return 0;
    auto* const system = static_cast<IAccessible*>(created);
    void* children = nullptr;
    system->QueryInterface(IID_IEnumVARIANT, &children);
    IAccessible* const object =
        new AccessibleWindow(window, system, static_cast<IEnumVARIANT*>(children), role, NulsAsBlanks(description));
    const LRESULT answer = answerWith(IID_IAccessible, wParam, object);
    object->Release();
    return answer;
}

}  // namespace runtime::win32
