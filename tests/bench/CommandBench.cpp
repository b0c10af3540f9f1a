// Compares the time of a command that the component ignores with the time of Exists of the system's
// Scripting.Dictionary. Each is called through its dual interface and through Invoke, in one process and alternating.
// Prints medians and ratios.
//     command_bench [CALLS A ROUND]
#include <cstdio>
#include <cstdlib>

#include "host/com/Bstr.h"
#include "host/com/ComPtr.h"
#include "tests/bench/Timing.h"

/// The part of the dictionary's interface that is called. It is outside the unnamed namespace, because the compiler
/// would otherwise know that no class implements it.
struct IDictionary : IDispatch {
    virtual HRESULT STDMETHODCALLTYPE putref_Item(VARIANT* key, VARIANT* item) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_Item(VARIANT* key, VARIANT* item) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_Item(VARIANT* key, VARIANT* item) = 0;
    virtual HRESULT STDMETHODCALLTYPE Add(VARIANT* key, VARIANT* item) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_Count(long* count) = 0;
    virtual HRESULT STDMETHODCALLTYPE Exists(VARIANT* key, VARIANT_BOOL* exists) = 0;
};
namespace {

using host::com::Bstr;
using host::com::ComPtr;

constexpr IID kDictionaryInterface = {0x42C642C1, 0x97E1, 0x11CF, {0x97, 0x8F, 0x00, 0xA0, 0x24, 0x63, 0xE0, 0x6F}};

constexpr runtime::StringView kCommand = u"Editor,SAVE";

void Check(HRESULT result, const char* what) {
    if (SUCCEEDED(result)) return;
    std::fprintf(stderr, "%s: 0x%08lX\n", what, static_cast<unsigned long>(result));
    std::exit(1);
}

/// Creates an instance from the library beside this program, without using the registration.
ComPtr<_clsQmxBackProcess> MakeComponent() {
    const HMODULE library = LoadLibraryW(L"K4TBackProcess.dll");
    const FARPROC entry = library ? GetProcAddress(library, "DllGetClassObject") : nullptr;
    if (!entry) Check(E_FAIL, "K4TBackProcess.dll");
    const auto getClassObject =
        reinterpret_cast<HRESULT(STDAPICALLTYPE*)(REFCLSID, REFIID, void**)>(reinterpret_cast<void*>(entry));
    ComPtr<IClassFactory> factory;
    Check(getClassObject(__uuidof(clsQmxBackProcess), IID_IClassFactory, factory.PutVoid()), "class factory");
    ComPtr<_clsQmxBackProcess> component;
    Check(factory->CreateInstance(nullptr, __uuidof(_clsQmxBackProcess), component.PutVoid()), "component");
    return component;
}

ComPtr<IDictionary> MakeDictionary() {
    CLSID identifier;
    Check(CLSIDFromProgID(L"Scripting.Dictionary", &identifier), "Scripting.Dictionary");
    ComPtr<IDictionary> dictionary;
    Check(CoCreateInstance(identifier, nullptr, CLSCTX_INPROC_SERVER, kDictionaryInterface, dictionary.PutVoid()),
          "dictionary");
    return dictionary;
}

VARIANT Text(const Bstr& bstr) {
    VARIANT variant;
    VariantInit(&variant);
    variant.vt = VT_BSTR;
    variant.bstrVal = bstr.Get();
    return variant;
}

DISPID MemberOf(IDispatch& object, const wchar_t* name) {
    LPOLESTR names[] = {const_cast<LPOLESTR>(name)};
    DISPID member = 0;
    Check(object.GetIDsOfNames(IID_NULL, names, 1, LOCALE_USER_DEFAULT, &member), "member");
    return member;
}

/// `arguments` are in reverse order, as Invoke requires.
void Invoke(IDispatch& object, DISPID member, VARIANT* arguments, UINT count) {
    DISPPARAMS parameters{arguments, nullptr, count, 0};
    VARIANT result{};
    Check(object.Invoke(member, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &parameters, &result, nullptr, nullptr),
          "Invoke");
}

/// The time of one call in nanoseconds.
template <typename Call>
double TimeOfCall(int calls, Call&& call) {
    return tests::TimeOf<std::nano>([&] {
               for (int i = 0; i < calls; ++i) call();
           }) /
           calls;
}

template <typename Ours, typename Theirs>
void Compare(const char* way, int calls, Ours&& ours, Theirs&& theirs) {
    constexpr int kRounds = 15;
    const tests::Medians times = tests::InTurns(
        0, kRounds, [&] { return TimeOfCall(calls, ours); }, [&] { return TimeOfCall(calls, theirs); });
    std::printf("%-16s NotifyMe %.0f ns, Exists %.0f ns, ratio %.2f\n", way, times.ours, times.theirs, times.Ratio());
}

void Run(int calls) {
    const auto component = MakeComponent();
    const auto dictionary = MakeDictionary();
    Bstr name;
    Bstr command(kCommand);
    VARIANT key = Text(command);

    Compare(
        "dual interface", calls, [&] { Check(component->NotifyMe(name.Address(), command.Address()), "NotifyMe"); },
        [&] {
            VARIANT_BOOL exists = VARIANT_FALSE;
            Check(dictionary->Exists(&key, &exists), "Exists");
        });

    const DISPID notifyMe = MemberOf(*component.Get(), L"NotifyMe");
    const DISPID exists = MemberOf(*dictionary.Get(), L"Exists");
    VARIANT arguments[2];
    arguments[0] = Text(command);
    arguments[1] = Text(name);
    Compare(
        "Invoke", calls, [&] { Invoke(*component.Get(), notifyMe, arguments, 2); },
        [&] { Invoke(*dictionary.Get(), exists, &key, 1); });
}

}  // namespace

int main(int argc, char** argv) {
    constexpr int kCalls = 50'000;
    Check(OleInitialize(nullptr), "OLE");
    Run(tests::CountFrom(argc, argv, kCalls));
    OleUninitialize();
}
