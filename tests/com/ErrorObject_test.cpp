// Tests the thread's error object after a call. Either the call has set the error object, or the thread has none. A
// release without an error keeps the earlier error object.
#include "tests/com/ComTest.h"
#include "tests/com/Sink.h"

namespace tests::com {
namespace {

class ErrorObjectAfter : public ComTest {
 protected:
    /// Stores another component's error object on the thread, runs `call`, and returns the description afterwards.
    template <typename Call>
    static std::string TextAfter(Call&& call) {
        LeaveErrorObject(u"foreign");
        call();
        return TextOfErrorObject();
    }

    ComPtr<_clsQmxBackProcess> instance = MakeInstance();
    ComPtr<IConnectionPoint> point = EventsOf(instance.Get());
};

TEST_F(ErrorObjectAfter, Success_ThreadHasNoErrorObject) {
    EXPECT_EQ("(none)", TextAfter([&] {
                  short mode = 0;
                  VARIANT_BOOL result = VARIANT_FALSE;
                  EXPECT_EQ(S_OK, instance->Load(&mode, &result));
              }));
    EXPECT_EQ("(none)", TextAfter([&] { EXPECT_EQ(S_OK, Notify(instance.Get(), u"QUERY")); }));
    EXPECT_EQ("(none)", TextAfter([&] {
                  Bstr path;
                  EXPECT_EQ(S_OK, instance->get_SeverPath(path.Address()));
              }));
    EXPECT_EQ("(none)", TextAfter([&] { EXPECT_EQ(S_OK, instance->put_SeverPath(nullptr)); }));
    EXPECT_EQ("(none)",
              TextAfter([&] { EXPECT_EQ(S_OK, Invoke(instance.Get(), kNotifyMe, DISPATCH_METHOD, {}).result); }));
    EXPECT_EQ("(none)", TextAfter([&] {
                  UINT count = 0;
                  EXPECT_EQ(S_OK, instance->GetTypeInfoCount(&count));
              }));
}

TEST_F(ErrorObjectAfter, FailureWithoutDescription_ThreadHasNoErrorObject) {
    EXPECT_EQ("(none)",
              TextAfter([&] { EXPECT_EQ("0x80020003", Hex(Invoke(instance.Get(), 99, DISPATCH_METHOD, {}).result)); }));
    EXPECT_EQ("(none)", TextAfter([&] {
                  wchar_t name[] = L"Nothing";
                  wchar_t* names[] = {name};
                  DISPID id = 0;
                  EXPECT_EQ("0x80020006", Hex(instance->GetIDsOfNames(IID_NULL, names, 1, 0, &id)));
              }));
    EXPECT_EQ("(none)", TextAfter([&] { EXPECT_EQ("0x80004003", Hex(instance->GetTypeInfoCount(nullptr))); }));
    EXPECT_EQ("(none)", TextAfter([&] { EXPECT_EQ("0x80004003", Hex(instance->Load(nullptr, nullptr))); }));
    EXPECT_EQ("(none)", TextAfter([&] { EXPECT_EQ("0x80004003", Hex(point->GetConnectionInterface(nullptr))); }));
}

TEST_F(ErrorObjectAfter, EventWhoseSinkSetADescription_ThreadHasNoErrorObject) {
    const auto sink = Sink::Make([](BSTR&, BSTR&, EXCEPINFO&) {
        LeaveErrorObject(u"of the sink");
        return S_OK;
    });
    Advise(instance.Get(), sink.Get());
    EXPECT_EQ("(none)", TextAfter([&] { EXPECT_EQ(S_OK, Notify(instance.Get(), u"RAISE a|b")); }));
    // The release raises an event, too. Afterwards the thread has the client's earlier error object again.
    point.Reset();
    EXPECT_EQ("foreign", TextAfter([&] { instance.Reset(); }));
}

TEST_F(ErrorObjectAfter, ConnectionPoint_SupportsErrorInfo) {
    const auto support = Query<ISupportErrorInfo>(point.Get(), IID_ISupportErrorInfo);
    ASSERT_TRUE(support);
    EXPECT_EQ(S_OK, support->InterfaceSupportsErrorInfo(IID_IConnectionPoint));
    EXPECT_EQ(S_FALSE, support->InterfaceSupportsErrorInfo(IID_IUnknown));
    EXPECT_EQ(Query<IUnknown>(support.Get(), IID_IUnknown).Get(), Query<IUnknown>(point.Get(), IID_IUnknown).Get());
    EXPECT_EQ("unknown connection 7", TextAfter([&] { point->Unadvise(7); }));
    EXPECT_EQ("(none)", TextAfter([&] {
                  const auto sink = Sink::Make();
                  EXPECT_EQ(S_OK, point->Unadvise(Advise(instance.Get(), sink.Get())));
              }));
}

}  // namespace
}  // namespace tests::com
