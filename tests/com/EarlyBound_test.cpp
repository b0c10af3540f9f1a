// Tests calls through the dual interface: null pointers, null strings, results, and errors with error objects.
#include <limits>

#include "tests/com/ComTest.h"
#include "tests/com/Sink.h"

namespace tests::com {
namespace {

using testing::ElementsAre;

class EarlyBound : public ComTest {
 protected:
    void SetUp() override { TheDouble().log.clear(); }

    ComPtr<_clsQmxBackProcess> instance = MakeInstance();
};

TEST_F(EarlyBound, Load_ReturnsTrueAndDoesNotChangeTheMode) {
    short mode = 99;
    VARIANT_BOOL result = VARIANT_FALSE;
    EXPECT_EQ(S_OK, instance->Load(&mode, &result));
    EXPECT_EQ(99, mode);
    EXPECT_EQ(VARIANT_TRUE, result);
}

TEST_F(EarlyBound, NullPointerToModeOrResult_IsRefused) {
    short mode = 1;
    VARIANT_BOOL result = VARIANT_TRUE;
    EXPECT_EQ("0x80004003", Hex(instance->Load(&mode, nullptr)));
    EXPECT_EQ("0x80004003", Hex(instance->Load(nullptr, &result)));
    EXPECT_EQ(VARIANT_FALSE, result);
    EXPECT_EQ("0x80004003", Hex(instance->get_SeverPath(nullptr)));
    EXPECT_EQ("0x80004003", Hex(instance->QueryInterface(IID_IUnknown, nullptr)));
    EXPECT_FALSE(TakeErrorObject().isThere);
    EXPECT_THAT(TheDouble().log, ElementsAre());
}

TEST_F(EarlyBound, NullPointerAndNullString_AreEmptyTexts) {
    BSTR null = nullptr;
    EXPECT_EQ(S_OK, instance->NotifyMe(nullptr, nullptr));
    EXPECT_EQ(S_OK, instance->NotifyMe(&null, &null));
    EXPECT_EQ(nullptr, null);
    EXPECT_THAT(TheDouble().log, ElementsAre("notify [] []", "notify [] []"));
}

TEST_F(EarlyBound, SinkChangesTheEvent_CallersStringsDoNotChange) {
    const auto changing = Sink::Make([](BSTR& name, BSTR& command, EXCEPINFO&) {
        Replace(name, u"other");
        Replace(command, u"other");
        return S_OK;
    });
    const DWORD cookie = Advise(instance.Get(), changing.Get());
    Bstr name(u"same");
    Bstr command(u"RAISE same|same");
    const BSTR nameBefore = name.Get();
    const BSTR commandBefore = command.Get();
    EXPECT_EQ(S_OK, instance->NotifyMe(name.Address(), command.Address()));
    EXPECT_EQ("other|other", TheDouble().raised);
    EXPECT_EQ(nameBefore, name.Get());
    EXPECT_EQ(commandBefore, command.Get());
    EXPECT_EQ(S_OK, EventsOf(instance.Get())->Unadvise(cookie));
}

TEST_F(EarlyBound, SeverPath_IsPutAndRead) {
    EXPECT_EQ(S_OK, instance->put_SeverPath(Bstr(u"X").Get()));
    EXPECT_EQ(S_OK, instance->put_SeverPath(nullptr));
    Bstr read;
    EXPECT_EQ(S_OK, instance->get_SeverPath(read.Address()));
    EXPECT_EQ(u"path", read.Text());
    EXPECT_THAT(TheDouble().log, ElementsAre("put [X]", "put []", "get"));
}

TEST_F(EarlyBound, RuntimeError_HasAnErrorObject) {
    EXPECT_EQ("0x800A270F", Hex(Notify(instance.Get(), u"FAIL 9999|silent")));
    const ErrorObject error = TakeErrorObject();
    EXPECT_EQ("silent", error.description);
    EXPECT_EQ("K4TBackProcess", error.source);
}

TEST_F(EarlyBound, ErrorNumberAbove65535_IsAnInternalError) {
    EXPECT_EQ("0x800AFFFF", Hex(Notify(instance.Get(), u"FAIL 65535|last")));
    EXPECT_EQ("0x800A0033", Hex(Notify(instance.Get(), u"FAIL 65536|beyond")));
    EXPECT_EQ("beyond", TakeErrorObject().description);
    EXPECT_EQ("0x80004005", Hex(Notify(instance.Get(), u"FAIL -2147467259|foreign")));
}

TEST_F(EarlyBound, LackOfMemoryAndOtherExceptions_ReturnErrorCodes) {
    SetErrorInfo(0, nullptr);
    EXPECT_EQ("0x8007000E", Hex(Notify(instance.Get(), u"MEMORY")));
    EXPECT_FALSE(TakeErrorObject().isThere);
    EXPECT_EQ("0x800A0033", Hex(Notify(instance.Get(), u"ODD")));
    EXPECT_EQ("Internal error", TakeErrorObject().description);
    EXPECT_EQ("0x800A0033", Hex(Notify(instance.Get(), u"STRANGE")));
    EXPECT_EQ("Internal error: no such place", TakeErrorObject().description);
}

TEST_F(EarlyBound, FailureWithoutDescription_ClearsTheErrorObject) {
    Notify(instance.Get(), u"FAIL 5|old");
    EXPECT_EQ("0x80004003", Hex(instance->get_SeverPath(nullptr)));
    EXPECT_FALSE(TakeErrorObject().isThere);
}

TEST_F(EarlyBound, Interface_SupportsErrorInfo) {
    const auto support = Query<ISupportErrorInfo>(instance.Get(), IID_ISupportErrorInfo);
    EXPECT_EQ(S_OK, support->InterfaceSupportsErrorInfo(IID__clsQmxBackProcess));
    EXPECT_EQ(S_FALSE, support->InterfaceSupportsErrorInfo(IID_IConnectionPointContainer));
}

}  // namespace
}  // namespace tests::com
