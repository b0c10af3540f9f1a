// Tests the real DLL with the development kernel in its folder `dev`. The tests load the DLL as COM does.
#include <filesystem>

#include "tests/com/ComponentLibrary.h"
#include "tests/com/Sink.h"

namespace tests::com {
namespace {

using testing::ElementsAre;

class Component : public testing::Test {
 protected:
    Component() { CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED); }
    ~Component() override {
        EXPECT_EQ(S_OK, CanUnload());
        CoUninitialize();
    }

    ComPtr<_clsQmxBackProcess> Create() const { return library_.Create(); }
    HRESULT CanUnload() const { return library_.CanUnload(); }

    const ComponentLibrary library_;
};

TEST_F(Component, LastRelease_RaisesShutdownForTheInstancesSink) {
    auto instance = Create();
    const auto sink = Sink::Make();
    Advise(instance.Get(), sink.Get());
    EXPECT_EQ(VARIANT_TRUE, Load(instance.Get()));
    EXPECT_EQ(S_FALSE, CanUnload());
    EXPECT_THAT(sink->received, ElementsAre());
    instance.Reset();
    EXPECT_THAT(sink->received, ElementsAre(kShutdown));
}

TEST_F(Component, UnknownInterface_LoadedFormDoesNotChange) {
    const auto instance = Create();
    const auto sink = Sink::Make();
    Advise(instance.Get(), sink.Get());
    Load(instance.Get());
    ComPtr<IUnknown> none;
    EXPECT_EQ("0x80004002",
              Hex(library_.ClassFactory()->CreateInstance(nullptr, IID_IPersistStreamInit, none.PutVoid())));
    EXPECT_THAT(sink->received, ElementsAre());
    EXPECT_EQ(1, FormWindows(GetCurrentThreadId()));
    EXPECT_EQ("Pelorix Background Processing Application", CaptionOfForm(instance.Get()));
}

TEST_F(Component, SinkKeepsEndedInstance_CallsFailWithError91) {
    auto instance = Create();
    Load(instance.Get());
    ComPtr<_clsQmxBackProcess> kept;
    _clsQmxBackProcess* const source = instance.Get();
    const auto sink = Sink::Make([&](BSTR&, BSTR&, EXCEPINFO&) {
        kept = ComPtr<_clsQmxBackProcess>(source);
        return S_OK;
    });
    Advise(source, sink.Get());
    instance.Reset();
    ASSERT_TRUE(kept);
    EXPECT_EQ("0x800A005B", Hex(Notify(kept.Get(), u"QUERY")));
    const auto diagnostics = Query<IK4TDiagnostics>(kept.Get(), IID_IK4TDiagnostics);
    EXPECT_EQ("0x800A005B", Hex(diagnostics->AP_SendCmdAll(nullptr)));
    Bstr name;
    EXPECT_EQ("0x800A005B", Hex(diagnostics->get_CurrentDesignName(name.Address())));
}

/// A module may load its own copy of the component in addition to the registered copy.
TEST_F(Component, TwoCopiesInOneProcess_EachHasItsOwnForm) {
    const std::filesystem::path folder = ComponentDll().parent_path() / L"second copy";
    std::filesystem::create_directories(folder / L"dev");
    for (const wchar_t* file : {L"K4TBackProcess.dll", L"dev\\QmxKrn2K.dll"}) {
        CopyFileW((ComponentDll().parent_path() / file).c_str(), (folder / file).c_str(), FALSE);
    }
    const ComponentLibrary second(folder / L"K4TBackProcess.dll");
    const auto instance = Create();
    const auto other = second.Create();
    const auto sink = Sink::Make();
    Advise(other.Get(), sink.Get());
    EXPECT_EQ(VARIANT_TRUE, Load(instance.Get()));
    EXPECT_EQ(VARIANT_TRUE, Load(other.Get()));
    EXPECT_THAT(sink->received, ElementsAre());
    EXPECT_EQ(2, FormWindows(GetCurrentThreadId()));
    EXPECT_EQ("Pelorix Background Processing Application", CaptionOfForm(other.Get()));
    EXPECT_EQ(S_OK, Notify(instance.Get(), u"All,EX"));
    EXPECT_THAT(sink->received, ElementsAre()) << "the sink got the shutdown of the other copy";
    EXPECT_EQ(1, FormWindows(GetCurrentThreadId()));
    EXPECT_EQ(VARIANT_TRUE, Load(instance.Get())) << "the second copy's claim prevented the load";
    EXPECT_EQ(2, FormWindows(GetCurrentThreadId()));
}

TEST_F(Component, HomeThreadEnded_NewInstanceLoadsItsForm) {
    ComPtr<_clsQmxBackProcess> orphan;
    InOtherApartment([&] {
        orphan = Create();
        Load(orphan.Get());
    });
    {
        auto instance = Create();
        EXPECT_EQ(VARIANT_TRUE, Load(instance.Get()));
        EXPECT_EQ(S_OK, Notify(instance.Get(), u"All,UP"));
    }
    EXPECT_EQ(S_FALSE, CanUnload()) << "the DLL can be unloaded, but an instance of the ended thread exists";
    orphan.Reset();
}

}  // namespace
}  // namespace tests::com
