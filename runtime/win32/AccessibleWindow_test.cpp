// Tests the accessible objects of real windows: the texts of a dialog and its label, calls by late binding, and the
// other interfaces of the object.
#include "runtime/win32/AccessibleWindow.h"

#include <gtest/gtest.h>
#include <ole2.h>
// Include this header after ole2.h, because the header needs ole2.h.
#include <oleacc.h>

#include <utility>

#include "runtime/Form.h"
#include "tests/support/RuntimeFixture.h"

namespace runtime::win32 {
namespace {

class AccessibleDialog : public Form {
 public:
    AccessibleDialog()
        : Form({.name = u"dialog", .caption = u"R&D", .inner = {3000, 1500}, .border = BorderStyle::kFixedDialog}),
          label(AddControl(
              {.kind = ControlKind::kLabel, .name = u"label", .bounds = {60, 60, 1500, 195}, .text = u"R&D?"})) {}

    Control& label;
};

/// Owns a reference to a COM object.
template <typename Interface>
class Reference {
 public:
    explicit Reference(Interface* object = nullptr) : object_(object) {}
    Reference(Reference&& other) noexcept : object_(std::exchange(other.object_, nullptr)) {}
    Reference& operator=(Reference&& other) = delete;
    ~Reference() {
        if (object_) object_->Release();
    }
    Interface* operator->() const { return object_; }
    Interface* Get() const { return object_; }

    /// Returns the object's interface `id`, or null.
    template <typename Other>
    Reference<Other> As(REFIID id) const {
        void* other = nullptr;
        const HRESULT result = object_->QueryInterface(id, &other);
        EXPECT_EQ(result, other ? S_OK : E_NOINTERFACE);
        return Reference<Other>(static_cast<Other*>(other));
    }

 private:
    Interface* object_;
};

using Accessible = Reference<IAccessible>;

Accessible AccessibleOf(HWND window) {
    void* object = nullptr;
    EXPECT_EQ(AccessibleObjectFromWindow(window, static_cast<DWORD>(OBJID_CLIENT), IID_IAccessible, &object), S_OK);
    return Accessible(static_cast<IAccessible*>(object));
}

VARIANT ThisObject() {
    VARIANT self{};
    self.vt = VT_I4;
    self.lVal = CHILDID_SELF;
    return self;
}

/// The result of a getter and its text.
using TextResult = std::pair<HRESULT, String>;

const TextResult kNoText{S_FALSE, u"(null)"};
const TextResult kNotConnected{CO_E_OBJNOTCONNECTED, u"(null)"};

TextResult AnswerOf(HRESULT (STDMETHODCALLTYPE IAccessible::*get)(VARIANT, BSTR*), const Accessible& object) {
    BSTR text = nullptr;
    const HRESULT result = (object.Get()->*get)(ThisObject(), &text);
    const TextResult both{result, text ? ToString(text, SysStringLen(text)) : String(u"(null)")};
    SysFreeString(text);
    return both;
}

TextResult NameOf(const Accessible& object) {
    return AnswerOf(&IAccessible::get_accName, object);
}

template <typename Interface>
HWND WindowOf(const Reference<Interface>& object) {
    HWND window = nullptr;
    EXPECT_EQ(object.template As<IOleWindow>(IID_IOleWindow)->GetWindow(&window), S_OK);
    return window;
}

/// Returns the value of a property by late binding.
VARIANT LateBoundValue(const Accessible& object, const wchar_t* name) {
    const auto dispatch = object.As<IDispatch>(IID_IDispatch);
    String written = ToString(name);
    LPOLESTR member = Wide(written.data());
    DISPID id = 0;
    EXPECT_EQ(dispatch->GetIDsOfNames(IID_NULL, &member, 1, LOCALE_NEUTRAL, &id), S_OK);
    VARIANT child = ThisObject();
    DISPPARAMS arguments{&child, nullptr, 1, 0};
    VARIANT value{};
    EXPECT_EQ(
        dispatch->Invoke(id, IID_NULL, LOCALE_NEUTRAL, DISPATCH_PROPERTYGET, &arguments, &value, nullptr, nullptr),
        S_OK);
    return value;
}

String LateBoundText(const Accessible& object, const wchar_t* name) {
    VARIANT value = LateBoundValue(object, name);
    const String text = value.vt == VT_BSTR && value.bstrVal ? ToString(value.bstrVal) : String();
    VariantClear(&value);
    return text;
}

class AccessibleWindows : public tests::RuntimeTest {
 protected:
    AccessibleWindows() { CoInitialize(nullptr); }
    ~AccessibleWindows() override { CoUninitialize(); }

    HWND Window() { return reinterpret_cast<HWND>(form_.Handle()); }
    HWND Label() { return GetDlgItem(Window(), 100); }

    AccessibleDialog form_;
};

TEST_F(AccessibleWindows, AmpersandInATitleOrLabel_IsNoShortcut) {
    for (const HWND window : {Window(), Label()}) {
        EXPECT_EQ(AnswerOf(&IAccessible::get_accKeyboardShortcut, AccessibleOf(window)), kNoText);
    }
}

TEST_F(AccessibleWindows, EmptyTitle_ThereIsNoName) {
    const Accessible object = AccessibleOf(Window());
    EXPECT_EQ(NameOf(object), (TextResult{S_OK, u"R&D"}));
    form_.SetCaption(u"");
    EXPECT_EQ(NameOf(object), kNoText);
}

LONG_PTR labelProcedure = 0;

LRESULT CALLBACK SayLonger(HWND window, UINT message, WPARAM wParam, LPARAM lParam) noexcept {
    const LRESULT result = CallWindowProcW(reinterpret_cast<WNDPROC>(labelProcedure), window, message, wParam, lParam);
    return message == WM_GETTEXTLENGTH ? result + 3 : result;
}

// The length that the system reports for a window's text is only an upper bound.
TEST_F(AccessibleWindows, TextIsShorterThanItsReportedLength_NameHasOnlyTheText) {
    labelProcedure = SetWindowLongPtrW(Label(), GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&SayLonger));
    EXPECT_EQ(NameOf(AccessibleOf(Label())), (TextResult{S_OK, u"R&D?"}));
}

TEST_F(AccessibleWindows, LateBoundClient_GetsTheSameAnswers) {
    form_.SetAccessibleDescription(u"Overwrite?");
    const Accessible object = AccessibleOf(Window());
    EXPECT_EQ(LateBoundText(object, L"accName"), u"R&D");
    EXPECT_EQ(LateBoundText(object, L"accDescription"), u"Overwrite?");
    EXPECT_EQ(LateBoundText(object, L"accKeyboardShortcut"), u"");
    const VARIANT role = LateBoundValue(object, L"accRole");
    EXPECT_EQ(role.vt, VT_I4);
    EXPECT_EQ(role.lVal, static_cast<LONG>(ROLE_SYSTEM_DIALOG));
}

TEST_F(AccessibleWindows, EveryInterface_BelongsToOneObject) {
    const Accessible object = AccessibleOf(Window());
    const auto identity = object.As<IUnknown>(IID_IUnknown);
    for (const IID& id : {IID_IEnumVARIANT, IID_IOleWindow, IID_IDispatch}) {
        const auto other = object.As<IUnknown>(id);
        ASSERT_NE(other.Get(), nullptr);
        EXPECT_EQ(other.As<IUnknown>(IID_IUnknown).Get(), identity.Get());
        EXPECT_EQ(other.As<IAccessible>(IID_IAccessible).Get(), object.Get());
    }
    EXPECT_EQ(object.As<IUnknown>(IID_IServiceProvider).Get(), nullptr);
    EXPECT_EQ(WindowOf(object), Window());
}

TEST_F(AccessibleWindows, Children_AreThoseOfTheSystemsObject) {
    const auto children = AccessibleOf(Window()).As<IEnumVARIANT>(IID_IEnumVARIANT);
    VARIANT found[2]{};
    ULONG count = 0;
    EXPECT_EQ(children->Next(2, found, &count), S_FALSE);
    ASSERT_EQ(count, 1u);
    ASSERT_EQ(found[0].vt, VT_DISPATCH);
    {
        const Reference<IDispatch> child(found[0].pdispVal);
        EXPECT_EQ(WindowOf(child), Label());
    }
    EXPECT_EQ(children->Next(1, found, &count), S_FALSE);
    EXPECT_EQ(children->Reset(), S_OK);
    EXPECT_EQ(children->Skip(1), S_OK);
    EXPECT_EQ(children->Next(1, found, &count), S_FALSE);
}

TEST_F(AccessibleWindows, ClosedDialog_AnswersWithAnError) {
    form_.SetAccessibleDescription(u"Overwrite?");
    const Accessible object = AccessibleOf(Window());
    form_.Unload();
    EXPECT_EQ(NameOf(object), kNotConnected);
    EXPECT_EQ(AnswerOf(&IAccessible::get_accDescription, object), kNotConnected);
    EXPECT_EQ(AnswerOf(&IAccessible::get_accKeyboardShortcut, object), kNotConnected);
    VARIANT role{};
    EXPECT_EQ(object->get_accRole(ThisObject(), &role), CO_E_OBJNOTCONNECTED);
    EXPECT_EQ(role.vt, VT_EMPTY);
}

}  // namespace
}  // namespace runtime::win32
