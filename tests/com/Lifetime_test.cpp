// Tests the end of an instance: the events that are raised, and the calls and references that are still possible.
#include "host/com/HomeApartment.h"
#include "tests/com/ComTest.h"
#include "tests/com/Sink.h"

namespace tests::com {
namespace {

using testing::ElementsAre;

class Lifetime : public ComTest {
 protected:
    ComPtr<_clsQmxBackProcess> instance = MakeInstance();
};

TEST_F(Lifetime, LastRelease_NotifiesSinksThenReleasesThem) {
    bool isReleased = false;
    auto sink = Sink::Make();
    Sink* const watched = sink.Get();
    sink->handler = [&](BSTR&, BSTR&, EXCEPINFO&) {
        EXPECT_THAT(watched->received, ElementsAre("K4TBACKPROCESS|SHUTDOWN"));
        TheDouble().log.push_back("received");
        return S_OK;
    };
    sink->whenReleased = [&] { isReleased = true; };
    Advise(instance.Get(), sink.Get());
    sink.Reset();
    instance.Reset();
    EXPECT_TRUE(isReleased);
    EXPECT_THAT(TheDouble().log, ElementsAre("made", "terminate", "received", "destroyed"));
}

TEST_F(Lifetime, References_AreCountedOverAllInterfaces) {
    auto information = Query<IProvideClassInfo2>(instance.Get(), IID_IProvideClassInfo2);
    auto point = EventsOf(instance.Get());
    instance.Reset();
    information.Reset();
    EXPECT_THAT(TheDouble().log, ElementsAre("made"));
    point.Reset();
    EXPECT_EQ("destroyed", TheDouble().log.back());
}

TEST_F(Lifetime, CallDuringShutdown_Succeeds) {
    _clsQmxBackProcess* const last = instance.Detach();
    HRESULT answered = E_FAIL;
    const auto sink = Sink::Make([&](BSTR&, BSTR&, EXCEPINFO&) {
        last->AddRef();
        answered = Notify(last, u"QUERY");
        last->Release();
        return S_OK;
    });
    Advise(last, sink.Get());
    EXPECT_EQ(0u, last->Release());
    EXPECT_EQ(S_OK, answered);
    EXPECT_THAT(TheDouble().log, ElementsAre("made", "terminate", "notify [] [QUERY]", "destroyed"));
}

TEST_F(Lifetime, ReferenceTakenDuringShutdown_CallsFailWithError91) {
    ComPtr<_clsQmxBackProcess> kept;
    _clsQmxBackProcess* const last = instance.Detach();
    const auto sink = Sink::Make([&](BSTR&, BSTR&, EXCEPINFO&) {
        kept = ComPtr<_clsQmxBackProcess>(last);
        return S_OK;
    });
    Advise(last, sink.Get());
    EXPECT_EQ(1u, last->Release());
    EXPECT_THAT(TheDouble().log, ElementsAre("made", "terminate", "destroyed"));
    EXPECT_FALSE(host::com::CanUnload());

    EXPECT_EQ("0x800A005B", Hex(Notify(kept.Get(), u"QUERY")));
    EXPECT_EQ("Object variable or With block variable not set: this instance has ended; create a new one",
              TakeErrorObject().description);
    EXPECT_EQ("0x800A005B", Hex(Invoke(kept.Get(), kNotifyMe, DISPATCH_METHOD, {}).scode));
    DWORD cookie = 0;
    EXPECT_EQ("0x80040202", Hex(EventsOf(kept.Get())->Advise(sink.Get(), &cookie)));
    EXPECT_EQ("this instance has ended; create a new one", TakeErrorObject().description);
    kept.Reset();
    EXPECT_EQ(1u, sink->received.size()) << "the instance ended more than once";
}

TEST_F(Lifetime, ShutdownFails_LeavesAnErrorObject) {
    TheDouble().terminateError = 53;
    const auto sink = Sink::Make();
    Advise(instance.Get(), sink.Get());
    instance.Reset();
    EXPECT_EQ("File not found", TakeErrorObject().description);
    EXPECT_EQ(1u, sink->received.size());
    EXPECT_EQ("destroyed", TheDouble().log.back());
}

TEST_F(Lifetime, ShutdownWithoutError_KeepsTheEarlierErrorObject) {
    Notify(instance.Get(), u"FAIL 5|kept");
    instance.Reset();
    EXPECT_EQ("kept", TakeErrorObject().description);
}

TEST_F(Lifetime, SinkHoldsTheInstance_DisconnectionEndsTheInstance) {
    auto sink = Sink::Make();
    ComPtr<_clsQmxBackProcess> held(instance.Get());
    sink->whenReleased = [&] { held.Reset(); };
    const DWORD cookie = Advise(instance.Get(), sink.Get());
    sink.Reset();
    _clsQmxBackProcess* const source = instance.Get();
    instance.Reset();
    // The sink holds the last reference to the instance. Releasing the sink releases the instance.
    EventsOf(source)->Unadvise(cookie);
    EXPECT_EQ("destroyed", TheDouble().log.back());
}

TEST_F(Lifetime, SinkReleasedAtShutdown_MayCallTheInstance) {
    _clsQmxBackProcess* const last = instance.Detach();
    HRESULT answered = E_FAIL;
    auto sink = Sink::Make();
    sink->whenReleased = [&] {
        const ComPtr<_clsQmxBackProcess> held(last);
        answered = Notify(held.Get(), u"QUERY");
    };
    Advise(last, sink.Get());
    sink.Reset();
    EXPECT_EQ(0u, last->Release());
    EXPECT_EQ(S_OK, answered);
    EXPECT_EQ("destroyed", TheDouble().log.back());
}

}  // namespace
}  // namespace tests::com
