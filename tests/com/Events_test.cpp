// Tests events and their sinks. Some sinks fail, or connect and disconnect sinks during an event.
#include "tests/com/ComTest.h"
#include "tests/com/Sink.h"

namespace tests::com {
namespace {

using testing::ElementsAre;

class Events : public ComTest {
 protected:
    // The sinks' handlers use the test's local variables, which no longer exist in TearDown. So SHUTDOWN must not be
    // raised.
    void TearDown() override { TheDouble().endsQuietly = true; }

    HRESULT Raise(StringView what) { return Notify(instance.Get(), u"RAISE " + String(what)); }
    void Unadvise(DWORD cookie) { EXPECT_EQ(S_OK, EventsOf(instance.Get())->Unadvise(cookie)); }

    ComPtr<_clsQmxBackProcess> instance = MakeInstance();
};

HRESULT Fail(EXCEPINFO& exception, HRESULT scode, WORD code, StringView description) {
    exception.scode = scode;
    exception.wCode = code;
    exception.bstrDescription = Bstr(description).Detach();
    exception.bstrSource = Bstr(u"sink").Detach();
    exception.bstrHelpFile = Bstr(u"help").Detach();
    return DISP_E_EXCEPTION;
}

TEST_F(Events, Event_ReachesSinksInTheOrderOfConnection) {
    std::string order;
    const auto note = [&order](char which) {
        return [&order, which](BSTR&, BSTR&, EXCEPINFO&) {
            order += which;
            return S_OK;
        };
    };
    const auto first = Sink::Make(note('1'));
    const auto second = Sink::Make(note('2'), SinkKind::kLateBoundOnly);
    const auto third = Sink::Make(note('3'));
    for (const auto& sink : {first, second, third}) Advise(instance.Get(), sink.Get());
    EXPECT_EQ(S_OK, Raise(u"NAME|text"));
    EXPECT_EQ("123", order);
    EXPECT_THAT(second->received, ElementsAre("NAME|text"));
}

TEST_F(Events, SinkConnectedTwice_ReceivesTwice) {
    const auto sink = Sink::Make();
    const DWORD first = Advise(instance.Get(), sink.Get());
    const DWORD second = Advise(instance.Get(), sink.Get());
    EXPECT_NE(first, second);
    Raise(u"a|b");
    EXPECT_THAT(sink->received, ElementsAre("a|b", "a|b"));
    Unadvise(first);
    Raise(u"c|d");
    EXPECT_THAT(sink->received, ElementsAre("a|b", "a|b", "c|d"));
}

TEST_F(Events, SinkChangesTheStrings_NextSinkAndComponentGetTheChange) {
    const auto changing = Sink::Make([](BSTR& name, BSTR& command, EXCEPINFO&) {
        Replace(name, u"N2");
        SysFreeString(std::exchange(command, nullptr));
        return S_OK;
    });
    const auto next = Sink::Make();
    Advise(instance.Get(), changing.Get());
    Advise(instance.Get(), next.Get());
    EXPECT_EQ(S_OK, Raise(u"N1|C1"));
    EXPECT_THAT(next->received, ElementsAre("N2|"));
    EXPECT_EQ("N2|", TheDouble().raised);
}

TEST_F(Events, SinkConnectedInAHandler_ReceivesTheNextEvent) {
    const auto late = Sink::Make();
    bool isConnected = false;
    const auto connecting = Sink::Make([&](BSTR&, BSTR&, EXCEPINFO&) {
        if (!std::exchange(isConnected, true)) Advise(instance.Get(), late.Get());
        return S_OK;
    });
    Advise(instance.Get(), connecting.Get());
    Raise(u"first|");
    EXPECT_THAT(late->received, ElementsAre());
    Raise(u"second|");
    EXPECT_THAT(late->received, ElementsAre("second|"));
}

TEST_F(Events, SinkDisconnectedBeforeItsTurn_ReceivesNothing) {
    DWORD cookie = 0;
    const auto disconnecting = Sink::Make([&](BSTR&, BSTR&, EXCEPINFO&) {
        if (cookie != 0) Unadvise(std::exchange(cookie, 0));
        return S_OK;
    });
    const auto unlucky = Sink::Make();
    const auto last = Sink::Make();
    Advise(instance.Get(), disconnecting.Get());
    cookie = Advise(instance.Get(), unlucky.Get());
    Advise(instance.Get(), last.Get());
    Raise(u"x|");
    EXPECT_THAT(unlucky->received, ElementsAre());
    EXPECT_THAT(last->received, ElementsAre("x|"));
}

TEST_F(Events, SinkDisconnectsItself_IsReleasedAfterItsCall) {
    DWORD cookie = 0;
    bool isReleased = false;
    auto leaving = Sink::Make([&](BSTR&, BSTR&, EXCEPINFO&) {
        Unadvise(cookie);
        EXPECT_FALSE(isReleased) << "the sink was released during its own call";
        return S_OK;
    });
    leaving->whenReleased = [&] { isReleased = true; };
    const auto next = Sink::Make();
    cookie = Advise(instance.Get(), leaving.Get());
    Advise(instance.Get(), next.Get());
    leaving.Reset();
    Raise(u"x|");
    EXPECT_TRUE(isReleased);
    EXPECT_THAT(next->received, ElementsAre("x|"));
}

TEST_F(Events, SinkRaisesAnEvent_EventsNest) {
    int depth = 0;
    const auto raising = Sink::Make([&](BSTR&, BSTR&, EXCEPINFO&) { return ++depth < 3 ? Raise(u"again|") : S_OK; });
    const auto next = Sink::Make();
    Advise(instance.Get(), raising.Get());
    Advise(instance.Get(), next.Get());
    EXPECT_EQ(S_OK, Raise(u"first|"));
    EXPECT_THAT(next->received, ElementsAre("again|", "again|", "first|"));
}

TEST_F(Events, SinkDestroysAnotherInstance_EventContinues) {
    auto other = MakeInstance();
    const auto listener = Sink::Make();
    Advise(other.Get(), listener.Get());
    const auto destroying = Sink::Make([&](BSTR&, BSTR&, EXCEPINFO&) {
        other.Reset();
        return S_OK;
    });
    const auto next = Sink::Make();
    Advise(instance.Get(), destroying.Get());
    Advise(instance.Get(), next.Get());
    EXPECT_EQ(S_OK, Raise(u"x|"));
    EXPECT_THAT(listener->received, ElementsAre("K4TBACKPROCESS|SHUTDOWN"));
    EXPECT_THAT(next->received, ElementsAre("x|"));
}

TEST_F(Events, SinkReleasesTheLastReference_EventContinues) {
    _clsQmxBackProcess* const last = instance.Detach();
    bool isReleased = false;
    const auto releasing = Sink::Make([&](BSTR&, BSTR&, EXCEPINFO&) {
        if (!std::exchange(isReleased, true)) last->Release();
        return S_OK;
    });
    const auto next = Sink::Make();
    Advise(last, releasing.Get());
    Advise(last, next.Get());
    EXPECT_EQ(S_OK, Notify(last, u"RAISE x|y"));
    EXPECT_THAT(next->received, ElementsAre("x|y", "K4TBACKPROCESS|SHUTDOWN"));
    EXPECT_EQ("destroyed", TheDouble().log.back());
}

TEST_F(Events, SinkFails_ErrorIsThrownAfterAllSinks) {
    const auto failing =
        Sink::Make([](BSTR&, BSTR&, EXCEPINFO& e) { return Fail(e, static_cast<HRESULT>(0x800A0005), 0, u"first"); });
    const auto failingToo = Sink::Make([](BSTR&, BSTR&, EXCEPINFO& e) { return Fail(e, 0, 1001, u"second"); });
    const auto last = Sink::Make();
    for (const auto& sink : {failing, failingToo, last}) Advise(instance.Get(), sink.Get());
    EXPECT_EQ("0x800A0005", Hex(Raise(u"x|")));
    EXPECT_EQ("first", TakeErrorObject().description);
    EXPECT_THAT(last->received, ElementsAre("x|"));
}

TEST_F(Events, SinkFails_ErrorKeepsItsNumber) {
    struct Case {
        HRESULT scode;
        WORD code;
        const char* expected;
    };
    const Case cases[] = {{static_cast<HRESULT>(0x800A004C), 0, "0x800A004C"},
                          {0, 1001, "0x800A03E9"},
                          {E_FAIL, 1001, "0x800A03E9"},
                          {E_FAIL, 0, "0x80004005"},
                          {0, 0, "0x80020009"},
                          {S_FALSE, 0, "0x80020009"}};
    for (const Case& each : cases) {
        const auto sink =
            Sink::Make([&each](BSTR&, BSTR&, EXCEPINFO& e) { return Fail(e, each.scode, each.code, u"told"); });
        const DWORD cookie = Advise(instance.Get(), sink.Get());
        EXPECT_EQ(each.expected, Hex(Raise(u"x|")));
        EXPECT_EQ("told", TakeErrorObject().description);
        Unadvise(cookie);
    }
}

TEST_F(Events, SinkFailsWithoutDescription_ErrorTextNamesTheSink) {
    const auto sink = Sink::Make([](BSTR&, BSTR&, EXCEPINFO& e) {
        e.scode = static_cast<HRESULT>(0x800A004C);
        return DISP_E_EXCEPTION;
    });
    Advise(instance.Get(), sink.Get());
    EXPECT_EQ("0x800A004C", Hex(Raise(u"x|")));
    EXPECT_EQ(
        "Path not found: the event sink of connection 1 returned 0x800A004C from NotifyServer; check the "
        "client's handler",
        TakeErrorObject().description);
}

HRESULT WINAPI FillInLate(EXCEPINFO* exception) {
    exception->scode = static_cast<HRESULT>(0x800A0006);
    exception->bstrDescription = Bstr(u"late").Detach();
    return S_OK;
}

TEST_F(Events, SinkFailsWithDeferredDetails_ErrorHasTheDetails) {
    const auto sink = Sink::Make([](BSTR&, BSTR&, EXCEPINFO& e) {
        e.pfnDeferredFillIn = FillInLate;
        return DISP_E_EXCEPTION;
    });
    Advise(instance.Get(), sink.Get());
    EXPECT_EQ("0x800A0006", Hex(Raise(u"x|")));
    EXPECT_EQ("late", TakeErrorObject().description);
}

TEST_F(Events, SinkReturnsAFailure_IsAnErrorUnlessNotImplemented) {
    HRESULT answer = S_OK;
    const auto sink = Sink::Make([&](BSTR&, BSTR&, EXCEPINFO&) { return answer; });
    Advise(instance.Get(), sink.Get());
    answer = E_ACCESSDENIED;
    EXPECT_EQ("0x80070005", Hex(Raise(u"x|")));
    EXPECT_EQ(
        "Application-defined or object-defined error: the event sink of connection 1 returned "
        "0x80070005 from NotifyServer; check the client's handler",
        TakeErrorObject().description);
    answer = DISP_E_MEMBERNOTFOUND;
    EXPECT_EQ(S_OK, Raise(u"x|"));
    answer = E_NOTIMPL;
    EXPECT_EQ(S_OK, Raise(u"x|"));
    answer = S_FALSE;
    EXPECT_EQ(S_OK, Raise(u"x|"));
}

TEST_F(Events, SinkOfAnEndedProcess_IsDisconnectedWithoutAnError) {
    const std::uint32_t answers[] = {0x80010108, 0x80010007, 0x80010012, 0x800401FD, 0x80010114,
                                     0x800706B5, 0x800706BA, 0x800706BE, 0x800706BF};
    for (const std::uint32_t answer : answers) {
        const auto gone = Sink::Make([=](BSTR&, BSTR&, EXCEPINFO&) { return static_cast<HRESULT>(answer); });
        const auto next = Sink::Make();
        const DWORD cookie = Advise(instance.Get(), gone.Get());
        const DWORD nextCookie = Advise(instance.Get(), next.Get());
        EXPECT_EQ("0x00000000", Hex(Raise(u"x|"))) << Hex(static_cast<HRESULT>(answer));
        EXPECT_THAT(next->received, ElementsAre("x|"));
        EXPECT_EQ("0x80040200", Hex(EventsOf(instance.Get())->Unadvise(cookie))) << "the sink is still connected";
        Unadvise(nextCookie);
    }
}

TEST_F(Events, SinkOfAnEndedProcess_DisconnectedDuringItsCall_IsNoError) {
    DWORD cookie = 0;
    const auto gone = Sink::Make([&](BSTR&, BSTR&, EXCEPINFO&) {
        Unadvise(cookie);
        return RPC_E_DISCONNECTED;
    });
    cookie = Advise(instance.Get(), gone.Get());
    EXPECT_EQ("0x00000000", Hex(Raise(u"x|")));
}

TEST_F(Events, HandlerRaisesADisconnectCode_IsAnError) {
    const auto failing =
        Sink::Make([](BSTR&, BSTR&, EXCEPINFO& e) { return Fail(e, RPC_E_DISCONNECTED, 0, u"of the handler"); });
    const DWORD cookie = Advise(instance.Get(), failing.Get());
    EXPECT_EQ("0x80010108", Hex(Raise(u"x|")));
    EXPECT_EQ("of the handler", TakeErrorObject().description);
    Unadvise(cookie);
}

TEST_F(Events, SinkChangesAndFails_NextSinkGetsTheChange) {
    const auto failing = Sink::Make([](BSTR& name, BSTR&, EXCEPINFO&) {
        Replace(name, u"changed");
        return E_FAIL;
    });
    const auto next = Sink::Make();
    Advise(instance.Get(), failing.Get());
    Advise(instance.Get(), next.Get());
    Raise(u"x|");
    EXPECT_THAT(next->received, ElementsAre("changed|"));
}

TEST_F(Events, ObjectWithoutASinkInterface_IsRefused) {
    const auto stranger = Sink::Make({}, SinkKind::kNoSink);
    const auto point = EventsOf(instance.Get());
    DWORD cookie = 5;
    EXPECT_EQ("0x80040202", Hex(point->Advise(stranger.Get(), &cookie)));
    EXPECT_EQ("the event sink implements neither __clsQmxBackProcess nor IDispatch", TakeErrorObject().description);
    EXPECT_EQ(0u, cookie);
    EXPECT_EQ("0x80004003", Hex(point->Advise(nullptr, &cookie)));
    EXPECT_EQ("0x80004003", Hex(point->Advise(stranger.Get(), nullptr)));
    EXPECT_EQ("0x80040200", Hex(point->Unadvise(0)));
    EXPECT_EQ("0x80040200", Hex(point->Unadvise(12345)));
    EXPECT_EQ("unknown connection 12345", TakeErrorObject().description);
}

TEST_F(Events, Cookie_IsNeverReused) {
    const auto sink = Sink::Make();
    const DWORD first = Advise(instance.Get(), sink.Get());
    Unadvise(first);
    const DWORD second = Advise(instance.Get(), sink.Get());
    EXPECT_NE(0u, first);
    EXPECT_NE(first, second);
    EXPECT_EQ("0x80040200", Hex(EventsOf(instance.Get())->Unadvise(first)));
}

}  // namespace
}  // namespace tests::com
