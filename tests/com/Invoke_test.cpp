// Tests late binding: which calls are valid, and what invalid calls return.
#include "tests/com/ComTest.h"

namespace tests::com {
namespace {

using testing::ElementsAre;

constexpr WORD kMethod = DISPATCH_METHOD;

class Invoking : public ComTest {
 protected:
    void SetUp() override { TheDouble().log.clear(); }
    IDispatch* Object() const { return instance.Get(); }

    ComPtr<_clsQmxBackProcess> instance = MakeInstance();
};

std::string HexOf(const Outcome& outcome) {
    return Hex(outcome.result);
}

TEST_F(Invoking, Load_ReturnsABoolean) {
    const Outcome outcome = Invoke(Object(), kLoad, kMethod, {Number(3)});
    EXPECT_EQ(S_OK, outcome.result);
    EXPECT_EQ(VT_BOOL, outcome.value.Get().vt);
    EXPECT_EQ(VARIANT_TRUE, outcome.value.Get().boolVal);
    EXPECT_THAT(TheDouble().log, ElementsAre("load 3"));
}

// A script passes a variable as a reference to a VARIANT.
TEST_F(Invoking, Load_AcceptsAScriptsVariable) {
    Variant variable(short{3});
    EXPECT_EQ(S_OK, Invoke(Object(), kLoad, kMethod | DISPATCH_PROPERTYGET, {ByReference(variable.Address())}).result);
    EXPECT_THAT(TheDouble().log, ElementsAre("load 3"));
    EXPECT_EQ(3, variable.Get().iVal);
}

TEST_F(Invoking, NotifyMe_ArgumentsAreInReverseOrder) {
    const Bstr name(u"name");
    const Bstr command(u"command");
    const Outcome outcome = Invoke(Object(), kNotifyMe, kMethod, {Text(command), Text(name)});
    EXPECT_EQ(S_OK, outcome.result);
    EXPECT_EQ(VT_EMPTY, outcome.value.Get().vt);
    EXPECT_THAT(TheDouble().log, ElementsAre("notify [name] [command]"));
}

TEST_F(Invoking, NotifyMe_MissingArgumentsAreEmpty) {
    const Bstr text(u"text");
    VARIANT missingVariable = Missing();
    Invoke(Object(), kNotifyMe, kMethod, {});
    Invoke(Object(), kNotifyMe, kMethod, {Text(text)});
    Invoke(Object(), kNotifyMe, kMethod, {Text(text), Missing()});
    Invoke(Object(), kNotifyMe, kMethod, {ByReference(&missingVariable), Text(text)});
    EXPECT_THAT(TheDouble().log,
                ElementsAre("notify [] []", "notify [text] []", "notify [] [text]", "notify [text] []"));
}

TEST_F(Invoking, NotifyMe_AcceptsNamedArguments) {
    const Bstr name(u"name");
    const Bstr command(u"command");
    Invoke(Object(), kNotifyMe, kMethod, {Text(name), Text(command)}, {0, 1});
    Invoke(Object(), kNotifyMe, kMethod, {Text(command)}, {1});
    Invoke(Object(), kNotifyMe, kMethod, {Text(command), Text(name)}, {1});
    EXPECT_THAT(TheDouble().log,
                ElementsAre("notify [name] [command]", "notify [] [command]", "notify [name] [command]"));
}

TEST_F(Invoking, UnknownOrRepeatedParameterName_IsRefused) {
    const Bstr text(u"text");
    const Outcome unknown = Invoke(Object(), kNotifyMe, kMethod, {Text(text), Text(text)}, {1, 2});
    EXPECT_EQ("0x80020004", HexOf(unknown));
    EXPECT_EQ(1u, unknown.badArgument);
    const Outcome putName = Invoke(Object(), kNotifyMe, kMethod, {Text(text)}, {DISPID_PROPERTYPUT});
    EXPECT_EQ("0x80020004", HexOf(putName));
    EXPECT_EQ(0u, putName.badArgument);
    const Outcome twice = Invoke(Object(), kNotifyMe, kMethod, {Text(text), Text(text)}, {0});
    EXPECT_EQ("0x80020004", HexOf(twice));
    EXPECT_THAT(TheDouble().log, ElementsAre());
}

TEST_F(Invoking, TooManyArguments_AreRefused) {
    EXPECT_EQ("0x8002000E", HexOf(Invoke(Object(), kLoad, kMethod, {Number(1), Number(2)})));
    EXPECT_EQ("0x8002000E", HexOf(Invoke(Object(), kNotifyMe, kMethod, {Missing(), Missing(), Missing()})));
    EXPECT_EQ("0x8002000E", HexOf(Invoke(Object(), kSeverPath, DISPATCH_PROPERTYGET, {Number(1)})));
}

TEST_F(Invoking, Load_WithoutItsArgument_IsRefused) {
    EXPECT_EQ("0x8002000F", HexOf(Invoke(Object(), kLoad, kMethod, {})));
    const Outcome outcome = Invoke(Object(), kLoad, kMethod, {Missing()});
    EXPECT_EQ("0x8002000F", HexOf(outcome));
    EXPECT_EQ(0u, outcome.badArgument);
}

TEST_F(Invoking, WrongArgument_IsReportedByItsIndex) {
    const Bstr text(u"text");
    EXPECT_EQ(1u, Invoke(Object(), kNotifyMe, kMethod, {Text(text), OfType(VT_NULL)}).badArgument);
    EXPECT_EQ(0u, Invoke(Object(), kNotifyMe, kMethod, {OfType(VT_NULL), Text(text)}).badArgument);
    EXPECT_EQ(1u, Invoke(Object(), kNotifyMe, kMethod, {Text(text), OfType(VT_NULL)}, {0, 1}).badArgument);
    EXPECT_THAT(TheDouble().log, ElementsAre());
}

TEST_F(Invoking, SeverPath_IsPutAndRead) {
    const Bstr path(u"X");
    EXPECT_EQ(S_OK, Invoke(Object(), kSeverPath, DISPATCH_PROPERTYPUT, {Text(path)}, {DISPID_PROPERTYPUT}).result);
    EXPECT_EQ(S_OK, Invoke(Object(), kSeverPath, DISPATCH_PROPERTYPUT, {Number(5)}, {DISPID_PROPERTYPUT}).result);
    const Outcome read = Invoke(Object(), kSeverPath, DISPATCH_PROPERTYGET | kMethod, {});
    EXPECT_EQ(VT_BSTR, read.value.Get().vt);
    EXPECT_EQ("path", Utf8(read.value.Get().bstrVal));
    EXPECT_THAT(TheDouble().log, ElementsAre("put [X]", "put [5]", "get"));
}

TEST_F(Invoking, InvalidPut_IsRefused) {
    const Bstr path(u"X");
    constexpr WORD kPut = DISPATCH_PROPERTYPUT;
    EXPECT_EQ("0x80020004", HexOf(Invoke(Object(), kSeverPath, kPut, {Text(path)})));
    EXPECT_EQ("0x80020004", HexOf(Invoke(Object(), kSeverPath, kPut, {Text(path)}, {0})));
    EXPECT_EQ("0x8002000E", HexOf(Invoke(Object(), kSeverPath, kPut, {})));
    EXPECT_EQ("0x8002000E", HexOf(Invoke(Object(), kSeverPath, kPut, {Text(path), Text(path)}, {DISPID_PROPERTYPUT})));
    EXPECT_EQ("0x80020005", HexOf(Invoke(Object(), kSeverPath, kPut, {OfType(VT_NULL)}, {DISPID_PROPERTYPUT})));
    EXPECT_EQ("0x8002000F", HexOf(Invoke(Object(), kSeverPath, kPut, {Missing()}, {DISPID_PROPERTYPUT})));
}

TEST_F(Invoking, WrongKindOfCall_IsRefused) {
    const Bstr path(u"X");
    EXPECT_EQ("0x80020003", HexOf(Invoke(Object(), kLoad, DISPATCH_PROPERTYGET, {Number(1)})));
    EXPECT_EQ("0x80020003", HexOf(Invoke(Object(), kNotifyMe, DISPATCH_PROPERTYPUT, {Number(1)})));
    EXPECT_EQ("0x80020003", HexOf(Invoke(Object(), kSeverPath, kMethod, {})));
    EXPECT_EQ("0x80020003",
              HexOf(Invoke(Object(), kSeverPath, DISPATCH_PROPERTYPUTREF, {Text(path)}, {DISPID_PROPERTYPUT})));
    EXPECT_EQ("0x80020003", HexOf(Invoke(Object(), 4, kMethod, {})));
    EXPECT_EQ("0x80020003", HexOf(Invoke(Object(), DISPID_VALUE, DISPATCH_PROPERTYGET, {})));
}

TEST_F(Invoking, MalformedCall_IsRefused) {
    DISPPARAMS none{};
    EXPECT_EQ("0x80020001",
              Hex(Object()->Invoke(kNotifyMe, IID_IUnknown, 0, kMethod, &none, nullptr, nullptr, nullptr)));
    EXPECT_EQ("0x80004003", Hex(Object()->Invoke(kNotifyMe, IID_NULL, 0, kMethod, nullptr, nullptr, nullptr, nullptr)));
    DISPPARAMS nowhere{nullptr, nullptr, 1, 0};
    EXPECT_EQ("0x80070057",
              Hex(Object()->Invoke(kNotifyMe, IID_NULL, 0, kMethod, &nowhere, nullptr, nullptr, nullptr)));
    DISPPARAMS moreNames{nullptr, nullptr, 0, 1};
    EXPECT_EQ("0x80070057",
              Hex(Object()->Invoke(kNotifyMe, IID_NULL, 0, kMethod, &moreNames, nullptr, nullptr, nullptr)));
}

TEST_F(Invoking, ResultPointers_MayBeNull) {
    VARIANT mode = Number(1);
    DISPPARAMS one{&mode, nullptr, 1, 0};
    EXPECT_EQ(S_OK, Object()->Invoke(kLoad, IID_NULL, 0, kMethod, &one, nullptr, nullptr, nullptr));
    VARIANT null = OfType(VT_NULL);
    DISPPARAMS bad{&null, nullptr, 1, 0};
    EXPECT_EQ("0x80020005", Hex(Object()->Invoke(kLoad, IID_NULL, 0, kMethod, &bad, nullptr, nullptr, nullptr)));
    Bstr fail(u"FAIL 5|no");
    VARIANT command = ByReference(fail.Address());
    DISPID name = 1;
    DISPPARAMS named{&command, &name, 1, 1};
    EXPECT_EQ("0x80020009", Hex(Object()->Invoke(kNotifyMe, IID_NULL, 0, kMethod, &named, nullptr, nullptr, nullptr)));
    EXPECT_EQ("no", TakeErrorObject().description);
}

TEST_F(Invoking, RuntimeError_IsAnException) {
    const Bstr command(u"FAIL 76|Path not found");
    const Outcome outcome = Invoke(Object(), kNotifyMe, kMethod, {Text(command)}, {1});
    EXPECT_EQ("0x80020009", HexOf(outcome));
    EXPECT_EQ("0x800A004C", Hex(outcome.scode));
    EXPECT_EQ("Path not found", outcome.description);
    EXPECT_EQ("K4TBackProcess", outcome.source);
    EXPECT_EQ(77u, outcome.badArgument);
}

TEST_F(Invoking, OtherExceptions_ReturnErrorCodes) {
    const Bstr memory(u"MEMORY");
    EXPECT_EQ("0x8007000E", HexOf(Invoke(Object(), kNotifyMe, kMethod, {Text(memory)}, {1})));
    const Bstr odd(u"ODD");
    const Outcome outcome = Invoke(Object(), kNotifyMe, kMethod, {Text(odd)}, {1});
    EXPECT_EQ("0x800A0033", Hex(outcome.scode));
    EXPECT_EQ("Internal error", outcome.description);
}

TEST_F(Invoking, Names_IgnoreLetterCase) {
    wchar_t member[] = L"nOTIFYmE";
    wchar_t second[] = L"SCOMMAND";
    wchar_t first[] = L"aname";
    LPOLESTR names[] = {member, second, first};
    DISPID ids[] = {0, 0, 0};
    EXPECT_EQ(S_OK, Object()->GetIDsOfNames(IID_NULL, names, 3, 0, ids));
    EXPECT_THAT(ids, ElementsAre(kNotifyMe, 1, 0));
}

TEST_F(Invoking, UnknownNames_GetTheUnknownIdentifier) {
    wchar_t member[] = L"Load";
    wchar_t known[] = L"iMode";
    wchar_t unknown[] = L"sCommand";
    LPOLESTR names[] = {member, unknown, known};
    DISPID ids[] = {9, 9, 9};
    EXPECT_EQ("0x80020006", Hex(Object()->GetIDsOfNames(IID_NULL, names, 3, 0, ids)));
    EXPECT_THAT(ids, ElementsAre(kLoad, DISPID_UNKNOWN, 0));
    EXPECT_EQ("0x80020006", Hex(Object()->GetIDsOfNames(IID_NULL, names + 1, 2, 0, ids)));
    EXPECT_THAT(ids, ElementsAre(DISPID_UNKNOWN, DISPID_UNKNOWN, 0));
    EXPECT_EQ("0x80020001", Hex(Object()->GetIDsOfNames(IID_IUnknown, names, 1, 0, ids)));
    EXPECT_EQ("0x80070057", Hex(Object()->GetIDsOfNames(IID_NULL, names, 0, 0, ids)));
    EXPECT_EQ("0x80004003", Hex(Object()->GetIDsOfNames(IID_NULL, nullptr, 1, 0, ids)));
}

}  // namespace
}  // namespace tests::com
