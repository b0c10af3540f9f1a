// Tests the diagnostics interface of an instance, with a test double of the component.
#include "host/com/Server.h"
#include "tests/com/ComTest.h"
#include "tests/com/Sink.h"

namespace tests::com {
namespace {

using testing::ElementsAre;

ComPtr<IK4TDiagnostics> DiagnosticsOf(IUnknown* instance) {
    return Query<IK4TDiagnostics>(instance, IID_IK4TDiagnostics);
}

class Diagnostics : public ComTest {
 protected:
    ComPtr<_clsQmxBackProcess> instance = MakeInstance();
    ComPtr<IK4TDiagnostics> diagnostics = DiagnosticsOf(instance.Get());
};

TEST_F(Diagnostics, QueryInterface_ReturnsTheSameInstance) {
    ASSERT_TRUE(diagnostics);
    EXPECT_EQ(Query<IUnknown>(instance.Get(), IID_IUnknown).Get(),
              Query<IUnknown>(diagnostics.Get(), IID_IUnknown).Get());
    EXPECT_EQ(S_OK, Query<ISupportErrorInfo>(instance.Get(), IID_ISupportErrorInfo)
                        ->InterfaceSupportsErrorInfo(IID_IK4TDiagnostics));
}

TEST_F(Diagnostics, EventMethods_PassTheArguments) {
    const auto sink = Sink::Make();
    Advise(instance.Get(), sink.Get());
    EXPECT_EQ(S_OK, diagnostics->AP_SendCmd(Bstr(u"M").Get(), Bstr(u"X,1").Get()));
    EXPECT_EQ(S_OK, diagnostics->AP_SendCmd(nullptr, nullptr));
    EXPECT_EQ(S_OK, diagnostics->AP_SendCmdAll(Bstr(u"OPEN").Get()));
    EXPECT_EQ(S_OK, diagnostics->AP_Shell(Bstr(u"M").Get(), -3, Bstr(u"a,b").Get()));
    EXPECT_THAT(sink->received, ElementsAre("M|X,1", "|", "all|OPEN", "M|-3 a,b"));
}

TEST_F(Diagnostics, HandlerFails_EventMethodReturnsTheError) {
    const auto sink = Sink::Make([](BSTR&, BSTR&, EXCEPINFO& exception) {
        exception.scode = static_cast<HRESULT>(0x800A0007);
        exception.bstrDescription = Bstr(u"no room").Detach();
        return DISP_E_EXCEPTION;
    });
    Advise(instance.Get(), sink.Get());
    EXPECT_EQ("0x800A0007", Hex(diagnostics->AP_SendCmdAll(Bstr(u"OPEN").Get())));
    EXPECT_EQ("no room", TextOfErrorObject());
}

TEST_F(Diagnostics, Properties_ReturnTheValues) {
    Bstr name, folder, caption;
    EXPECT_EQ(S_OK, diagnostics->get_CurrentDesignName(name.Address()));
    EXPECT_EQ(S_OK, diagnostics->get_LanguagePath(folder.Address()));
    EXPECT_EQ(u"design", name.Text());
    EXPECT_EQ(u"folder", folder.Text());
    EXPECT_EQ(S_FALSE, diagnostics->get_Caption(caption.Address()));
    EXPECT_EQ(nullptr, caption.Get());
    TheDouble().caption = u"Titel";
    EXPECT_EQ(S_OK, diagnostics->get_Caption(caption.Address()));
    EXPECT_EQ(u"Titel", caption.Text());
    EXPECT_EQ("0x80004003", Hex(diagnostics->get_Caption(nullptr)));
}

TEST_F(Diagnostics, OtherThread_IsRefused) {
    InOtherApartment([&] {
        EXPECT_EQ("0x8001010E", Hex(diagnostics->AP_SendCmdAll(nullptr)));
        Bstr name;
        EXPECT_EQ("0x8001010E", Hex(diagnostics->get_CurrentDesignName(name.Address())));
    });
    EXPECT_THAT(TheDouble().log, ElementsAre("made"));
}

TEST_F(Diagnostics, ProxyOfAnotherApartment_LacksTheDiagnostics) {
    ASSERT_EQ(S_OK, host::com::RegisterServer()) << "cannot register the type library, which the proxy needs";
    InOtherApartment([&] {
        const auto proxy = MakeInstance();
        ASSERT_TRUE(proxy);
        IUnknown* found = instance.Get();
        EXPECT_EQ("0x80004002", Hex(proxy->QueryInterface(IID_IK4TDiagnostics, reinterpret_cast<void**>(&found))));
        EXPECT_EQ(nullptr, found);
    });
    EXPECT_EQ(S_OK, host::com::UnregisterServer());
}

}  // namespace
}  // namespace tests::com
