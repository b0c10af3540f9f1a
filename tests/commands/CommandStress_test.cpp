// Sends random commands to the component's DLL, which uses the development kernel and the real main form. The commands
// must not hang, and memory must not grow. On request, the test sends a million commands.
#include "host/com/ComHeaders.h"

#include <gtest/gtest.h>
#include <psapi.h>

#include "host/com/Bstr.h"
#include "host/com/ComPtr.h"
#include "runtime/win32/Handle.h"
#include "tests/support/CommandMaker.h"
#include "tests/support/Rounds.h"
#include "tests/support/TestFolder.h"

namespace host::com {
namespace {

constexpr std::size_t kMegabyte = 1024 * 1024;
constexpr std::size_t kSlack = 8 * kMegabyte;

std::size_t PrivateBytes() {
    PROCESS_MEMORY_COUNTERS counters{};
    EXPECT_TRUE(K32GetProcessMemoryInfo(GetCurrentProcess(), &counters, sizeof counters));
    return counters.PagefileUsage;
}

/// Returns the path of a shipped file, which is in this program's folder.
String Shipped(StringView file) {
    return tests::TestFolder() + u'\\' + String(file);
}

template <typename Function>
Function Entry(const runtime::win32::Library& library, const char* name) {
    const FARPROC entry = library ? GetProcAddress(library.Get(), name) : nullptr;
    EXPECT_NE(entry, nullptr) << name;
    return reinterpret_cast<Function>(reinterpret_cast<void*>(entry));
}

/// Creates an instance of the shipped component. Only this process uses the instance's kernel strings.
class ShippedComponent : public ::testing::Test {
 protected:
    void SetUp() override {
        ASSERT_EQ(OleInitialize(nullptr), S_OK);
        ASSERT_TRUE(SetEnvironmentVariableW(L"K4TBACKPROCESS_DEVELOPMENT_KERNEL", L"1"));
        ASSERT_TRUE(SetEnvironmentVariableW(L"QMXKRN2K_STORE", L"command-stress"));
        kernel_ = runtime::win32::Library(LoadLibraryW(runtime::win32::Wide(Shipped(u"dev\\QmxKrn2K.dll"))));
        component_ = runtime::win32::Library(LoadLibraryW(runtime::win32::Wide(Shipped(u"K4TBackProcess.dll"))));
        ASSERT_TRUE(kernel_ && component_);
        Put("DESIGN_NAME", "amplifier");
        Put("LANGUAGEPATH", "C:\\none");
        using GetClassObject = HRESULT(STDAPICALLTYPE*)(REFCLSID, REFIID, void**);
        ComPtr<IClassFactory> factory;
        ASSERT_EQ(Entry<GetClassObject>(component_, "DllGetClassObject")(__uuidof(clsQmxBackProcess), IID_IClassFactory,
                                                                         factory.PutVoid()),
                  S_OK);
        ASSERT_EQ(factory->CreateInstance(nullptr, __uuidof(_clsQmxBackProcess), object_.PutVoid()), S_OK);
        short mode = 1;
        VARIANT_BOOL broughtUp = VARIANT_FALSE;
        ASSERT_EQ(object_->Load(&mode, &broughtUp), S_OK);
        ASSERT_EQ(broughtUp, VARIANT_TRUE);
    }
    void TearDown() override {
        object_.Reset();
        component_.Reset();
        kernel_.Reset();
        SetEnvironmentVariableW(L"QMXKRN2K_STORE", nullptr);
        SetEnvironmentVariableW(L"K4TBACKPROCESS_DEVELOPMENT_KERNEL", nullptr);
        OleUninitialize();
    }

    void Put(const char* key, const char* value) {
        Entry<long(__stdcall*)(const char*, const char*)>(kernel_, "E_SetString")(key, value);
    }
    String Value(HRESULT (STDMETHODCALLTYPE IK4TDiagnostics::*get)(BSTR*)) {
        Bstr value;
        EXPECT_EQ((Query<IK4TDiagnostics>(object_.Get(), __uuidof(IK4TDiagnostics)).Get()->*get)(value.Address()),
                  S_OK);
        return value.Text();
    }
    HRESULT NotifyEarly(Bstr& command) { return object_->NotifyMe(name_.Address(), command.Address()); }
    /// Sends the command late-bound. The arguments are in reverse order: first the command, by reference, then the
    /// name, by value.
    HRESULT NotifyLate(Bstr& command) {
        constexpr DISPID kNotifyMe = 2;
        VARIANT arguments[2]{};
        arguments[0].vt = VT_BSTR | VT_BYREF;
        arguments[0].pbstrVal = command.Address();
        arguments[1].vt = VT_BSTR;
        DISPPARAMS parameters{arguments, nullptr, 2, 0};
        return object_->Invoke(kNotifyMe, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &parameters, nullptr, nullptr,
                               nullptr);
    }

    runtime::win32::Library kernel_;
    runtime::win32::Library component_;
    ComPtr<_clsQmxBackProcess> object_;
    Bstr name_;
};

TEST_F(ShippedComponent, LoadedComponent_HasIconTypeLibraryAndVersion) {
    const HMODULE module = component_.Get();
    EXPECT_NE(FindResourceW(module, L"QUESTION", RT_GROUP_ICON), nullptr);
    EXPECT_NE(FindResourceW(module, MAKEINTRESOURCEW(1), L"TYPELIB"), nullptr);
    EXPECT_NE(FindResourceW(module, MAKEINTRESOURCEW(VS_VERSION_INFO), RT_VERSION), nullptr);
}

TEST_F(ShippedComponent, ManyCommands_MemoryDoesNotGrow) {
    tests::CommandMaker maker(20'000, 10'000);
    const int commands = tests::Rounds(1'000'000, 100'000);
    std::size_t before = 0;
    for (int i = 0; i < commands; ++i) {
        // The test measures from here. By now, the component has allocated all memory that it allocates only once. Most
        // of this memory is for the longest text.
        if (i == commands / 5) before = PrivateBytes();
        const String given = maker.Next();
        Bstr command(given);
        ASSERT_EQ(i % 2 == 0 ? NotifyEarly(command) : NotifyLate(command), S_OK);
        ASSERT_EQ(command.Text(), given);
    }
    EXPECT_LT(PrivateBytes(), before + kSlack);
    EXPECT_EQ(Value(&IK4TDiagnostics::get_CurrentDesignName), u"amplifier");
    EXPECT_EQ(Value(&IK4TDiagnostics::get_LanguagePath), u"C:\\none");
    EXPECT_EQ(Value(&IK4TDiagnostics::get_Caption), u"Pelorix Background Processing Application");
}

TEST_F(ShippedComponent, GiantCommand_NextCommandFreesTheMemory) {
    const std::size_t before = PrivateBytes();
    {
        Bstr giant(String(32 * kMegabyte, u'x'));
        EXPECT_EQ(NotifyEarly(giant), S_OK);
    }
    Bstr small(u"All,RD");
    EXPECT_EQ(NotifyEarly(small), S_OK);
    EXPECT_LT(PrivateBytes(), before + kSlack);
}

}  // namespace
}  // namespace host::com
