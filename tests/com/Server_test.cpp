// Tests the DLL with a test double of the component: its exports and resources, its registration, its activation by COM
// and by a manifest, and its unloading.
#include <filesystem>
#include <string>
#include <vector>

#include "runtime/win32/Handle.h"
#include "tests/com/ComTest.h"
#include "tests/com/Sink.h"
#include "tests/support/TestFolder.h"

namespace tests::com {
namespace {

using runtime::win32::Library;
namespace fs = std::filesystem;

fs::path DoubleFolder() {
    return fs::path(TestFolder()) / L"com_double";
}

fs::path DoubleDll() {
    return DoubleFolder() / L"K4TBackProcess.dll";
}

class Server : public testing::Test {
 protected:
    Server() { CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED); }
    ~Server() override {
        CoFreeUnusedLibrariesEx(0, 0);
        CoUninitialize();
    }

    /// Calls an exported function that has no parameters.
    static HRESULT Call(const Library& library, const char* name) {
        const auto function =
            reinterpret_cast<HRESULT(WINAPI*)()>(reinterpret_cast<void*>(GetProcAddress(library.Get(), name)));
        return function == nullptr ? E_NOTIMPL : function();
    }
};

TEST_F(Server, Exports_IncludeTheFunctionsOfAComServer) {
    const Library library(LoadLibraryW(DoubleDll().c_str()));
    ASSERT_TRUE(library) << GetLastError();
    for (const char* name :
         {"DllGetClassObject", "DllCanUnloadNow", "DllRegisterServer", "DllUnregisterServer", "DllInstall"}) {
        EXPECT_NE(nullptr, reinterpret_cast<void*>(GetProcAddress(library.Get(), name))) << name;
    }
    EXPECT_EQ(S_OK, Call(library, "DllCanUnloadNow"));
}

bool IsInMemory(const fs::path& dll) {
    return GetModuleHandleW(dll.c_str()) != nullptr;
}

/// Copies the DLL to a new folder and returns the copy's path. No other test has used the copy in this process. Tests
/// need a new copy, because a DLL stays in memory once DllGetClassObject was called.
fs::path FreshCopy(const std::wstring& folderName = L"copy") {
    static int count = 0;
    const fs::path folder = DoubleFolder() / (folderName + L' ' + std::to_wstring(++count));
    fs::create_directories(folder);
    const fs::path dll = folder / L"K4TBackProcess.dll";
    EXPECT_TRUE(CopyFileW(DoubleDll().c_str(), dll.c_str(), FALSE)) << GetLastError();
    return dll;
}

TEST_F(Server, LibraryFreedAfterRegistration_IsUnloaded) {
    const fs::path dll = FreshCopy();
    Library library(LoadLibraryW(dll.c_str()));
    EXPECT_EQ(S_OK, Call(library, "DllRegisterServer"));
    EXPECT_EQ(S_OK, Call(library, "DllUnregisterServer"));
    EXPECT_EQ(S_OK, Call(library, "DllCanUnloadNow"));
    EXPECT_TRUE(IsInMemory(dll));
    library.Reset();
    EXPECT_FALSE(IsInMemory(dll));
}

TEST_F(Server, PathIsTooLongForCom_RegistrationIsRefused) {
    // The two paths have 260 and 259 characters. Each path ends with "\\K4TBackProcess.dll".
    constexpr std::size_t kNameLength = 19;
    const std::wstring base = DoubleFolder().wstring() + L'\\';
    for (const std::size_t length : {std::size_t{260}, std::size_t{259}}) {
        const std::wstring folder = base + std::wstring(length - kNameLength - base.size(), L'x');
        const std::wstring dll = folder + L"\\K4TBackProcess.dll";
        ASSERT_EQ(length, dll.size());
        CreateDirectoryW((L"\\\\?\\" + folder).c_str(), nullptr);
        ASSERT_TRUE(CopyFileW(DoubleDll().c_str(), (L"\\\\?\\" + dll).c_str(), FALSE)) << GetLastError();
        const Library library(LoadLibraryW(dll.c_str()));
        ASSERT_TRUE(library) << GetLastError();
        EXPECT_EQ(length == 260 ? "0x800700CE" : "0x00000000", Hex(Call(library, "DllRegisterServer")));
        EXPECT_EQ(length == 260, TakeErrorObject().isThere);
        EXPECT_EQ("0x00000000", Hex(Call(library, "DllUnregisterServer")));
    }
}

/// Runs regsvr32 on the DLL and returns the exit code of regsvr32.
DWORD RunRegsvr32(const std::wstring& options) {
    std::wstring line = L"regsvr32 /s " + options + L" \"" + DoubleDll().wstring() + L'"';
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION started{};
    EXPECT_TRUE(CreateProcessW(nullptr, line.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &startup, &started));
    DWORD code = STILL_ACTIVE;
    WaitForSingleObject(started.hProcess, 30'000);
    GetExitCodeProcess(started.hProcess, &code);
    CloseHandle(started.hThread);
    CloseHandle(started.hProcess);
    return code;
}

TEST_F(Server, Regsvr32WithOptionI_RegistersAndUnregisters) {
    CLSID classId{};
    EXPECT_EQ(0u, RunRegsvr32(L"/i"));
    EXPECT_EQ(S_OK, CLSIDFromProgID(L"K4TBackProcess.clsQmxBackProcess", &classId));
    EXPECT_EQ(0u, RunRegsvr32(L"/u /i"));
    EXPECT_NE(S_OK, CLSIDFromProgID(L"K4TBackProcess.clsQmxBackProcess", &classId));
}

TEST_F(Server, LibraryFreedAfterDllGetClassObject_StaysInMemory) {
    const fs::path dll = FreshCopy();
    Library library(LoadLibraryW(dll.c_str()));
    const auto getClassObject = reinterpret_cast<HRESULT(WINAPI*)(REFCLSID, REFIID, void**)>(
        reinterpret_cast<void*>(GetProcAddress(library.Get(), "DllGetClassObject")));
    ComPtr<IClassFactory> factory;
    EXPECT_EQ(S_OK, getClassObject(CLSID_clsQmxBackProcess, IID_IClassFactory, factory.PutVoid()));
    EXPECT_EQ(S_FALSE, Call(library, "DllCanUnloadNow"));
    factory.Reset();
    EXPECT_EQ(S_OK, Call(library, "DllCanUnloadNow"));
    library.Reset();
    EXPECT_TRUE(IsInMemory(dll));
}

TEST_F(Server, Resources_HaveTheTypeLibraryAndTheVersion) {
    ComPtr<ITypeLib> library;
    EXPECT_EQ(S_OK, LoadTypeLibEx(DoubleDll().c_str(), REGKIND_NONE, library.Put()));
    DWORD ignored = 0;
    const DWORD size = GetFileVersionInfoSizeW(DoubleDll().c_str(), &ignored);
    std::vector<BYTE> data(size);
    ASSERT_TRUE(GetFileVersionInfoW(DoubleDll().c_str(), 0, size, data.data()));
    wchar_t* text = nullptr;
    UINT length = 0;
    ASSERT_TRUE(VerQueryValueW(data.data(), L"\\StringFileInfo\\040904B0\\OriginalFilename",
                               reinterpret_cast<void**>(&text), &length));
    EXPECT_STREQ(L"K4TBackProcess.dll", text);
}

/// For marshalling, Wine converts a library's path to the system's code page. So tests with two apartments use the
/// folder with the ASCII name.
constexpr wchar_t kPlainFolder[] = L"plain & blank";
constexpr wchar_t kForeignFolder[] = L"f\u00FCr \u6F22\u5B57 & more";

/// Copies the DLL to a folder with this name and registers the copy for the machine.
class RegisteredServer : public Server {
 protected:
    explicit RegisteredServer(const wchar_t* folder = kForeignFolder) : dll_(FreshCopy(folder)) {
        const Library library(LoadLibraryW(dll_.c_str()));
        EXPECT_EQ(S_OK, Call(library, "DllRegisterServer"));
    }
    ~RegisteredServer() override {
        const Library library(LoadLibraryW(dll_.c_str()));
        EXPECT_EQ(S_OK, Call(library, "DllUnregisterServer"));
    }

    static ComPtr<_clsQmxBackProcess> Create() {
        CLSID classId{};
        EXPECT_EQ(S_OK, CLSIDFromProgID(L"K4TBackProcess.clsQmxBackProcess", &classId));
        ComPtr<_clsQmxBackProcess> instance;
        EXPECT_EQ("0x00000000", Hex(CoCreateInstance(classId, nullptr, CLSCTX_INPROC_SERVER, IID__clsQmxBackProcess,
                                                     instance.PutVoid())));
        return instance;
    }

    const fs::path dll_;
};

TEST_F(RegisteredServer, ActivationByName_Succeeds) {
    const auto instance = Create();
    ASSERT_TRUE(instance);
    const auto sink = Sink::Make();
    Advise(instance.Get(), sink.Get());
    EXPECT_EQ(S_OK, Notify(instance.Get(), u"RAISE name|text"));
    EXPECT_THAT(sink->received, testing::ElementsAre("name|text"));
}

TEST_F(RegisteredServer, TypeLibrary_IsFoundForSeveralLocales) {
    for (const LCID language : {0x409, 0x411, 0}) {
        ComPtr<ITypeLib> library;
        EXPECT_EQ("0x00000000", Hex(LoadRegTypeLib(LIBID_K4TBackProcess, 1, 0, language, library.Put()))) << language;
    }
}

class CrossingServer : public RegisteredServer {
 protected:
    CrossingServer() : RegisteredServer(kPlainFolder) {}
};

TEST_F(CrossingServer, TwoApartments_AreServed) {
    const auto instance = Create();
    InOtherApartment([] {
        const auto other = Create();
        ASSERT_TRUE(other);
        const auto sink = Sink::Make();
        Advise(other.Get(), sink.Get());
        EXPECT_EQ(S_OK, Notify(other.Get(), u"RAISE name|text"));
        EXPECT_THAT(sink->received, testing::ElementsAre("name|text"));
    });
}

TEST_F(CrossingServer, MultithreadedApartment_IsServed) {
    InOtherApartment(
        [] {
            const auto other = Create();
            ASSERT_TRUE(other);
            EXPECT_EQ(S_OK, Notify(other.Get(), u"QUERY"));
        },
        COINIT_MULTITHREADED);
}

/// Activates the manifest in the DLL's folder for the current thread.
class Context {
 public:
    Context() {
        const std::wstring manifest = DoubleFolder() / L"K4TBackProcess.manifest";
        ACTCTXW description{};
        description.cbSize = sizeof description;
        description.lpSource = manifest.c_str();
        handle_ = CreateActCtxW(&description);
        isActive_ = handle_ != INVALID_HANDLE_VALUE && ActivateActCtx(handle_, &cookie_);
    }
    Context(const Context&) = delete;
    Context& operator=(const Context&) = delete;
    ~Context() {
        if (isActive_) DeactivateActCtx(0, cookie_);
        if (handle_ != INVALID_HANDLE_VALUE) ReleaseActCtx(handle_);
    }
    bool IsActive() const { return isActive_; }

 private:
    HANDLE handle_ = INVALID_HANDLE_VALUE;
    ULONG_PTR cookie_ = 0;
    bool isActive_ = false;
};

TEST_F(Server, ActivationByManifest_NeedsNoRegistration) {
    const Context context;
    ASSERT_TRUE(context.IsActive()) << GetLastError();
    CLSID classId{};
    EXPECT_EQ(S_OK, CLSIDFromProgID(L"K4TBackProcess.clsQmxBackProcess", &classId));
    ComPtr<_clsQmxBackProcess> instance;
    EXPECT_EQ("0x00000000", Hex(CoCreateInstance(CLSID_clsQmxBackProcess, nullptr, CLSCTX_INPROC_SERVER,
                                                 IID__clsQmxBackProcess, instance.PutVoid())));
    ASSERT_TRUE(instance);
    EXPECT_EQ(S_OK, Notify(instance.Get(), u"QUERY"));
    ComPtr<ITypeLib> library;
    EXPECT_EQ("0x00000000", Hex(LoadRegTypeLib(LIBID_K4TBackProcess, 1, 0, 0x409, library.Put())));
}

}  // namespace
}  // namespace tests::com
