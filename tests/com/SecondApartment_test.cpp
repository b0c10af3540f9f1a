// Tests clients in several apartments of one process. All instances are in the home apartment. Calls and events of
// other apartments are marshalled.
#include <thread>

#include "host/com/HomeApartment.h"
#include "host/com/Server.h"
#include "tests/com/ComTest.h"
#include "tests/com/Sink.h"
#include "tests/windows/ReplacedImport.h"

namespace tests::com {
namespace {

using testing::Each;
using testing::ElementsAre;

/// Marshalling needs the registered type library. Wine looks for it only in the machine's hive.
class SecondApartment : public ComTest {
 protected:
    SecondApartment() { EXPECT_EQ(S_OK, host::com::RegisterServer()); }
    ~SecondApartment() override { EXPECT_EQ(S_OK, host::com::UnregisterServer()); }

    const DWORD here = GetCurrentThreadId();
};

TEST_F(SecondApartment, Instances_RunOnTheHomeThread) {
    const auto first = MakeInstance();
    InOtherApartment([] {
        const auto second = MakeInstance();
        ASSERT_TRUE(second);
        EXPECT_EQ(S_OK, Notify(second.Get(), u"QUERY"));
        const auto third = MakeInstance();
        EXPECT_EQ(S_OK, Notify(third.Get(), u"QUERY"));
    });
    EXPECT_THAT(TheDouble().threads, Each(here));
    EXPECT_EQ("destroyed", TheDouble().log.back());
    EXPECT_EQ(0, TheDouble().lostHomes);
}

TEST_F(SecondApartment, ArgumentsAndResults_AreMarshalled) {
    const auto first = MakeInstance();
    InOtherApartment([] {
        const auto second = MakeInstance();
        short mode = 99;
        VARIANT_BOOL result = VARIANT_FALSE;
        EXPECT_EQ(S_OK, second->Load(&mode, &result));
        EXPECT_EQ(VARIANT_TRUE, result);
        Bstr name(u"n");
        EXPECT_EQ(S_OK, second->NotifyMe(name.Address(), Bstr(u"c").Address()));
        EXPECT_EQ("notify [n] [c]", TheDouble().log.back());
        EXPECT_EQ("0x800A0005", Hex(second->NotifyMe(name.Address(), Bstr(u"FAIL 5|no").Address())));
        const Outcome outcome = Invoke(second.Get(), kSeverPath, DISPATCH_PROPERTYGET, {});
        EXPECT_EQ("path", Utf8(outcome.value.Get().bstrVal));
    });
    EXPECT_THAT(TheDouble().threads, Each(here));
}

TEST_F(SecondApartment, Event_RunsOnTheSinksThreadAndReturns) {
    const auto first = MakeInstance();
    DWORD there = 0;
    InOtherApartment([&] {
        there = GetCurrentThreadId();
        auto second = MakeInstance();
        auto sink = Sink::Make([](BSTR& name, BSTR&, EXCEPINFO&) {
            Replace(name, u"changed");
            return S_OK;
        });
        const DWORD cookie = Advise(second.Get(), sink.Get());
        Bstr name;
        Bstr command(u"RAISE name|text");
        EXPECT_EQ(S_OK, second->NotifyMe(name.Address(), command.Address()));
        EXPECT_EQ("changed|text", TheDouble().raised);
        EXPECT_THAT(sink->received, ElementsAre("name|text"));
        EXPECT_EQ(there, sink->thread);
        EXPECT_EQ(S_OK, EventsOf(second.Get())->Unadvise(cookie));
    });
    EXPECT_NE(here, there);
}

TEST_F(SecondApartment, LastRelease_NotifiesSinksOfOtherThreads) {
    const auto first = MakeInstance();
    InOtherApartment([] {
        auto second = MakeInstance();
        const auto sink = Sink::Make();
        Advise(second.Get(), sink.Get());
        second.Reset();
        EXPECT_THAT(sink->received, ElementsAre("K4TBACKPROCESS|SHUTDOWN"));
    });
    EXPECT_THAT(TheDouble().threads, Each(here));
}

TEST_F(SecondApartment, CreationFails_ErrorIsMarshalled) {
    const auto first = MakeInstance();
    TheDouble().makeError = 53;
    InOtherApartment([] {
        ComPtr<IUnknown> none;
        const auto factory = Factory();
        LeaveErrorObject(u"foreign");
        EXPECT_EQ("0x800A0035", Hex(factory->CreateInstance(nullptr, IID_IUnknown, none.PutVoid())));
        EXPECT_FALSE(none);
        // Windows passes the description to the other apartment, and Wine 8 does not. On both systems, the old
        // description "foreign" must be gone.
        EXPECT_THAT(TextOfErrorObject(), testing::AnyOf("File not found", "(none)"));
    });
}

TEST_F(SecondApartment, LastInstanceEnds_NextThreadBecomesHome) {
    MakeInstance();
    TheDouble().threads.clear();
    DWORD there = 0;
    InOtherApartment([&] {
        there = GetCurrentThreadId();
        MakeInstance();
    });
    EXPECT_THAT(TheDouble().threads, Each(there));
}

/// Releases the home's only instance while another thread joins the home. At that moment, the other thread has found
/// the home but has not called it.
class LeavingHome {
 public:
    explicit LeavingHome(ComPtr<_clsQmxBackProcess>& instance) {
        instance_ = &instance;
        window_ = CreateWindowExW(0, L"Static", L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, nullptr, nullptr);
        SetWindowLongPtrW(window_, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&OnMessage));
    }
    LeavingHome(const LeavingHome&) = delete;
    LeavingHome& operator=(const LeavingHome&) = delete;
    ~LeavingHome() { DestroyWindow(window_); }

 private:
    static HRESULT WINAPI CreateAfterwards(REFCLSID classId, IUnknown* outer, DWORD context, REFIID iid,
                                           void** object) noexcept {
        const bool isHome = GetWindowThreadProcessId(window_, nullptr) == GetCurrentThreadId();
        if (!isHome) SendMessageW(window_, WM_APP, 0, 0);
        const auto create = reinterpret_cast<decltype(&CoCreateInstance)>(
            reinterpret_cast<void*>(GetProcAddress(GetModuleHandleW(L"ole32.dll"), "CoCreateInstance")));
        return create(classId, outer, context, iid, object);
    }
    static LRESULT CALLBACK OnMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam) noexcept {
        if (message != WM_APP) return DefWindowProcW(window, message, wParam, lParam);
        instance_->Reset();
        return 0;
    }

    static inline ComPtr<_clsQmxBackProcess>* instance_ = nullptr;
    static inline HWND window_ = nullptr;
    const ReplacedImport replaced_{"CoCreateInstance", CreateAfterwards};
};

TEST_F(SecondApartment, HomeEndsDuringACreation_CallerBecomesHome) {
    auto first = MakeInstance();
    const LeavingHome leaving(first);
    DWORD there = 0;
    InOtherApartment([&] {
        there = GetCurrentThreadId();
        EXPECT_TRUE(MakeInstance());
    });
    EXPECT_THAT(TheDouble().log, ElementsAre("made", "terminate", "destroyed", "made", "terminate", "destroyed"));
    EXPECT_THAT(TheDouble().threads, ElementsAre(here, here, here, there, there, there));
}

TEST_F(SecondApartment, ExistingWindow_KeepsTheHome) {
    TheDouble().liveWindows = 1;
    MakeInstance();
    InOtherApartment([] { MakeInstance(); });
    EXPECT_THAT(TheDouble().threads, Each(here));
    TheDouble().liveWindows = 0;
}

TEST_F(SecondApartment, HomeThreadEnded_NextThreadBecomesHome) {
    ComPtr<_clsQmxBackProcess> orphan;
    InOtherApartment([&] { orphan = MakeInstance(); });
    TheDouble().threads.clear();
    const auto next = MakeInstance();
    EXPECT_EQ(1, TheDouble().lostHomes);
    EXPECT_THAT(TheDouble().threads, Each(here));
    EXPECT_FALSE(host::com::CanUnload());
}

TEST_F(SecondApartment, HomeThreadEnded_NoThreadGetsItsIdentifier) {
    ComPtr<_clsQmxBackProcess> orphan;
    DWORD ended = 0;
    InOtherApartment([&] {
        ended = GetCurrentThreadId();
        orphan = MakeInstance();
    });
    // The system may use the identifier of an ended thread again after some hundred threads.
    for (int i = 0; i < 1000; ++i) {
        std::thread([ended] { EXPECT_NE(ended, GetCurrentThreadId()); }).join();
    }
}

DWORD WINAPI EndThreadInsideCom(void* orphan) {
    CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
    *static_cast<ComPtr<_clsQmxBackProcess>*>(orphan) = MakeInstance();
    return 0;
}

TEST_F(SecondApartment, HomeThreadEndedInsideCom_NextThreadBecomesHome) {
    ComPtr<_clsQmxBackProcess> orphan;
    const HANDLE thread = CreateThread(nullptr, 0, EndThreadInsideCom, &orphan, 0, nullptr);
    EXPECT_EQ(WAIT_OBJECT_0, WaitForSingleObject(thread, 10000));
    CloseHandle(thread);
    InOtherApartment([] { EXPECT_TRUE(MakeInstance()); });
    EXPECT_EQ(1, TheDouble().lostHomes);
}

TEST_F(SecondApartment, HomeThreadLeftCom_CreationSucceeds) {
    ComPtr<_clsQmxBackProcess> orphan;
    InOtherApartment([&] {
        orphan = MakeInstance();
        CoUninitialize();
        InOtherApartment([] { EXPECT_TRUE(MakeInstance()); });
        CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
    });
}

TEST_F(SecondApartment, MultithreadedApartment_CreationIsRefused) {
    InOtherApartment(
        [] {
            ComPtr<IUnknown> none;
            EXPECT_EQ("0x8001010E", Hex(Factory()->CreateInstance(nullptr, IID_IUnknown, none.PutVoid())));
            EXPECT_TRUE(
                TakeErrorObject().description.starts_with("this thread is not in a single-threaded apartment; "));
        },
        COINIT_MULTITHREADED);
}

}  // namespace
}  // namespace tests::com
