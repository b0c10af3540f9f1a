// Tests a client that passes an unmarshalled pointer to another thread. COM forbids this. Calls must return an error.
// A last release must end the instance on the home thread. Nothing may crash.
#include <thread>

#include "host/com/HomeApartment.h"
#include "tests/com/ComTest.h"
#include "tests/com/ComponentLibrary.h"
#include "tests/com/Sink.h"

namespace tests::com {
namespace {

using testing::Each;
using testing::ElementsAre;
using testing::StartsWith;

class WrongThread : public ComTest {
 protected:
    /// Fails the test unless `result` is the error for a wrong thread and the error object has its text. Clears the
    /// error object.
    static void ExpectRefused(HRESULT result, const char* member) {
        EXPECT_EQ("0x8001010E", Hex(result)) << member;
        EXPECT_THAT(TakeErrorObject().description, StartsWith("this instance cannot be called on this thread"))
            << member;
    }

    const DWORD here = GetCurrentThreadId();
    ComPtr<_clsQmxBackProcess> instance = MakeInstance();
};

TEST_F(WrongThread, MembersOfTheInterface_AreRefused) {
    InOtherApartment([&] {
        short mode = 0;
        VARIANT_BOOL result = VARIANT_TRUE;
        ExpectRefused(instance->Load(&mode, &result), "Load");
        EXPECT_EQ(VARIANT_FALSE, result);
        ExpectRefused(Notify(instance.Get(), u"QUERY"), "NotifyMe");
        Bstr path;
        ExpectRefused(instance->get_SeverPath(path.Address()), "get_SeverPath");
        ExpectRefused(instance->put_SeverPath(nullptr), "put_SeverPath");
        ExpectRefused(Invoke(instance.Get(), kNotifyMe, DISPATCH_METHOD, {}).result, "Invoke");
        UINT count = 7;
        ExpectRefused(instance->GetTypeInfoCount(&count), "GetTypeInfoCount");
        EXPECT_EQ(0u, count);
        ComPtr<ITypeInfo> info;
        ExpectRefused(instance->GetTypeInfo(0, 0, info.Put()), "GetTypeInfo");
        wchar_t name[] = L"Load";
        wchar_t* names[] = {name};
        DISPID id = 0;
        ExpectRefused(instance->GetIDsOfNames(IID_NULL, names, 1, 0, &id), "GetIDsOfNames");
    });
    EXPECT_THAT(TheDouble().log, ElementsAre("made"));
}

TEST_F(WrongThread, MembersThatConnectSinks_AreRefused) {
    const auto point = EventsOf(instance.Get());
    const auto container = Query<IConnectionPointContainer>(instance.Get(), IID_IConnectionPointContainer);
    const auto sink = Sink::Make();
    InOtherApartment([&] {
        DWORD cookie = 7;
        ExpectRefused(point->Advise(sink.Get(), &cookie), "Advise");
        EXPECT_EQ(0u, cookie);
        ExpectRefused(point->Unadvise(1), "Unadvise");
        ComPtr<IEnumConnections> connections;
        ExpectRefused(point->EnumConnections(connections.Put()), "EnumConnections");
        ComPtr<IConnectionPoint> found;
        ExpectRefused(container->FindConnectionPoint(DIID___clsQmxBackProcess, found.Put()), "FindConnectionPoint");
        ComPtr<IEnumConnectionPoints> points;
        ExpectRefused(container->EnumConnectionPoints(points.Put()), "EnumConnectionPoints");
    });
}

TEST_F(WrongThread, MembersThatDescribeTheClass_AreRefused) {
    const auto information = Query<IProvideClassInfo2>(instance.Get(), IID_IProvideClassInfo2);
    InOtherApartment([&] {
        ComPtr<ITypeInfo> info;
        ExpectRefused(information->GetClassInfo(info.Put()), "GetClassInfo");
        GUID guid = CLSID_clsQmxBackProcess;
        ExpectRefused(information->GetGUID(GUIDKIND_DEFAULT_SOURCE_DISP_IID, &guid), "GetGUID");
        EXPECT_TRUE(guid == GUID_NULL);
    });
}

TEST_F(WrongThread, LastRelease_EndsTheInstanceOnTheHomeThread) {
    const auto sink = Sink::Make();
    Advise(instance.Get(), sink.Get());
    InOtherApartment([&] { EXPECT_EQ(0u, instance.Detach()->Release()); });
    ServeMessages();
    EXPECT_THAT(TheDouble().log, ElementsAre("made", "terminate", "destroyed"));
    EXPECT_THAT(TheDouble().threads, Each(here));
    EXPECT_THAT(sink->received, ElementsAre(kShutdown));
    EXPECT_EQ(here, sink->thread);
}

TEST_F(WrongThread, LastReleaseOutsideCom_EndsTheInstanceOnTheHomeThread) {
    std::thread([&] { instance.Reset(); }).join();
    EXPECT_THAT(TheDouble().log, ElementsAre("made"));
    EXPECT_FALSE(host::com::CanUnload());
    ServeMessages();
    EXPECT_THAT(TheDouble().log, ElementsAre("made", "terminate", "destroyed"));
    EXPECT_THAT(TheDouble().threads, Each(here));
}

/// Uses the real component and its windows.
class WrongThreadWindow : public testing::Test {
 protected:
    WrongThreadWindow() {
        CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
        instance_ = library_.Create();
    }
    ~WrongThreadWindow() override {
        EXPECT_EQ(S_OK, library_.CanUnload());
        CoUninitialize();
    }

    const DWORD here = GetCurrentThreadId();
    const ComponentLibrary library_;
    ComPtr<_clsQmxBackProcess> instance_;
};

TEST_F(WrongThreadWindow, Load_CreatesNoWindowOnTheOtherThread) {
    InOtherApartment([&] {
        short mode = 0;
        VARIANT_BOOL result = VARIANT_FALSE;
        EXPECT_EQ("0x8001010E", Hex(instance_->Load(&mode, &result)));
        EXPECT_EQ(0, FormWindows(GetCurrentThreadId()));
    });
    Load(instance_.Get());
    EXPECT_EQ(1, FormWindows(here));
    instance_.Reset();
    EXPECT_EQ(0, FormWindows(here));
}

TEST_F(WrongThreadWindow, LastRelease_DestroysTheWindowOnTheHomeThread) {
    const auto sink = Sink::Make();
    Advise(instance_.Get(), sink.Get());
    Load(instance_.Get());
    InOtherApartment([&] { instance_.Reset(); });
    ServeMessages();
    EXPECT_EQ(0, FormWindows(here));
    EXPECT_THAT(sink->received, ElementsAre(kShutdown));
    EXPECT_EQ(here, sink->thread);
}

TEST_F(WrongThreadWindow, HomeLeftCom_NextHomeHasItsOwnForm) {
    const auto sink = Sink::Make();
    Advise(instance_.Get(), sink.Get());
    Load(instance_.Get());
    CoUninitialize();
    InOtherApartment([&] {
        auto next = library_.Create();
        EXPECT_EQ(VARIANT_TRUE, Load(next.Get()));
        EXPECT_EQ(1, FormWindows(GetCurrentThreadId()));
        EXPECT_EQ(S_OK, Notify(next.Get(), u"All,UP"));
        next.Reset();
        EXPECT_EQ(0, FormWindows(GetCurrentThreadId()));
    });
    EXPECT_EQ(0, FormWindows(here));
    EXPECT_THAT(sink->received, ElementsAre()) << "the sink got an event after the home's end";
    CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
    EXPECT_EQ("0x8001010E", Hex(Notify(instance_.Get(), u"All,UP")));
    instance_.Reset();
}

}  // namespace
}  // namespace tests::com
