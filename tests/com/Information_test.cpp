// Tests how an instance describes itself: interfaces, class information, type library and enumerators.
#include <utility>

#include "host/com/HomeApartment.h"
#include "host/com/Module.h"
#include "host/com/TypeLibrary.h"
#include "tests/com/ComTest.h"
#include "tests/com/Sink.h"

namespace tests::com {
namespace {

using testing::ElementsAre;

class Information : public ComTest {
 protected:
    ComPtr<_clsQmxBackProcess> instance = MakeInstance();
};

ComPtr<ITypeLib> OwnTypeLibrary() {
    ComPtr<ITypeLib> library;
    LoadTypeLibEx(runtime::win32::Wide(host::com::ModulePath()), REGKIND_NONE, library.Put());
    return library;
}

ULONG ReferencesTo(IUnknown* object) {
    object->AddRef();
    return object->Release();
}

TEST_F(Information, AfterTheFirstInstance_TheTypeLibraryStaysOpen) {
    EXPECT_EQ(2u, ReferencesTo(OwnTypeLibrary().Get()))
        << "expected one reference of the test and one of the component";
    {
        const auto second = MakeInstance();
        EXPECT_EQ(2u, ReferencesTo(OwnTypeLibrary().Get()));
    }
    instance.Reset();
    EXPECT_EQ(2u, ReferencesTo(OwnTypeLibrary().Get()));
}

std::string NameOf(ITypeInfo* type) {
    Bstr name;
    type->GetDocumentation(MEMBERID_NIL, name.Address(), nullptr, nullptr, nullptr);
    return Utf8(name.Get());
}

std::string NameOf(ITypeInfo* type, DISPID member) {
    Bstr name;
    type->GetDocumentation(member, name.Address(), nullptr, nullptr, nullptr);
    return Utf8(name.Get());
}

TEST_F(Information, AllInterfaces_ReturnTheSameIUnknown) {
    const auto identity = Query<IUnknown>(instance.Get(), IID_IUnknown);
    for (const IID* iid : {&IID_IDispatch, &IID__clsQmxBackProcess, &IID_IProvideClassInfo, &IID_IProvideClassInfo2,
                           &IID_ISupportErrorInfo, &IID_IConnectionPointContainer}) {
        const auto other = Query<IUnknown>(instance.Get(), *iid);
        ASSERT_TRUE(other);
        EXPECT_EQ(identity.Get(), Query<IUnknown>(other.Get(), IID_IUnknown).Get());
    }
    const auto point = EventsOf(instance.Get());
    EXPECT_NE(identity.Get(), Query<IUnknown>(point.Get(), IID_IUnknown).Get());
}

TEST_F(Information, OtherInterfaces_AreRefused) {
    IUnknown* found = instance.Get();
    EXPECT_EQ("0x80004002", Hex(instance->QueryInterface(IID_IExternalConnection, reinterpret_cast<void**>(&found))));
    EXPECT_EQ(nullptr, found);
    EXPECT_FALSE(Query<IUnknown>(instance.Get(), DIID___clsQmxBackProcess));
    EXPECT_FALSE(Query<IUnknown>(EventsOf(instance.Get()).Get(), IID_IDispatch));
}

TEST_F(Information, TypeLibrary_HasItsIdentifierAndVersion) {
    const auto library = OwnTypeLibrary();
    TLIBATTR* attributes = nullptr;
    ASSERT_EQ(S_OK, library->GetLibAttr(&attributes));
    EXPECT_TRUE(attributes->guid == LIBID_K4TBackProcess);
    EXPECT_EQ(1, attributes->wMajorVerNum);
    EXPECT_EQ(0, attributes->wMinorVerNum);
    EXPECT_EQ(0x409u, attributes->lcid);
    library->ReleaseTLibAttr(attributes);
    Bstr name;
    Bstr help;
    library->GetDocumentation(MEMBERID_NIL, name.Address(), help.Address(), nullptr, nullptr);
    EXPECT_EQ(u"K4TBackProcess", name.Text());
    EXPECT_EQ(u"Pelorix Back process Manager", help.Text());
}

/// Returns a type's description, for example "name {identifier} kind 4 flags 0x1050 functions 4 interfaces 1".
std::string Described(ITypeInfo* type) {
    TYPEATTR* attributes = nullptr;
    type->GetTypeAttr(&attributes);
    wchar_t identifier[40];
    StringFromGUID2(attributes->guid, identifier, 40);
    std::string text = NameOf(type) + " " + runtime::ToUtf8(runtime::win32::Utf16(identifier)) + " kind " +
                       std::to_string(attributes->typekind) + " flags " + Hex(attributes->wTypeFlags) + " functions " +
                       std::to_string(attributes->cFuncs) + " interfaces " + std::to_string(attributes->cImplTypes);
    type->ReleaseTypeAttr(attributes);
    return text;
}

/// The type library must never change, because clients are compiled against it. The diagnostics interface is not part
/// of the library.
TEST_F(Information, TypeLibrary_HasThreeFixedTypes) {
    const auto library = OwnTypeLibrary();
    std::vector<std::string> types;
    for (UINT i = 0; i < library->GetTypeInfoCount(); ++i) {
        ComPtr<ITypeInfo> type;
        ASSERT_EQ(S_OK, library->GetTypeInfo(i, type.Put()));
        types.push_back(Described(type.Get()));
    }
    EXPECT_THAT(types, ElementsAre("_clsQmxBackProcess {DBCC7CB8-42ED-4781-9CF1-7D977C573BF7} kind 4 flags 0x000010D0 "
                                   "functions 11 interfaces 1",
                                   "__clsQmxBackProcess {E6EF5F7B-3B81-4C13-854D-A9C8C260608C} kind 4 flags 0x00001010 "
                                   "functions 1 interfaces 1",
                                   "clsQmxBackProcess {ECD8F3EF-620B-4D2C-8D9B-9F3E96273634} kind 5 flags 0x00000002 "
                                   "functions 0 interfaces 2"));
}

TEST_F(Information, ClassInfo_NamesBothInterfaces) {
    const auto provider = Query<IProvideClassInfo>(instance.Get(), IID_IProvideClassInfo);
    ComPtr<ITypeInfo> type;
    ASSERT_EQ(S_OK, provider->GetClassInfo(type.Put()));
    EXPECT_EQ("clsQmxBackProcess", NameOf(type.Get()));
    EXPECT_EQ("0x80004003", Hex(provider->GetClassInfo(nullptr)));
    const int expected[] = {IMPLTYPEFLAG_FDEFAULT, IMPLTYPEFLAG_FDEFAULT | IMPLTYPEFLAG_FSOURCE};
    const char* const names[] = {"_clsQmxBackProcess", "__clsQmxBackProcess"};
    for (UINT i = 0; i < 2; ++i) {
        int flags = 0;
        EXPECT_EQ(S_OK, type->GetImplTypeFlags(i, &flags));
        EXPECT_EQ(expected[i], flags);
        HREFTYPE reference = 0;
        ComPtr<ITypeInfo> interfaceType;
        type->GetRefTypeOfImplType(i, &reference);
        ASSERT_EQ(S_OK, type->GetRefTypeInfo(reference, interfaceType.Put()));
        EXPECT_EQ(names[i], NameOf(interfaceType.Get()));
    }
}

TEST_F(Information, GetGUID_ReturnsTheEventInterface) {
    const auto provider = Query<IProvideClassInfo2>(instance.Get(), IID_IProvideClassInfo2);
    GUID guid = GUID_NULL;
    EXPECT_EQ(S_OK, provider->GetGUID(GUIDKIND_DEFAULT_SOURCE_DISP_IID, &guid));
    EXPECT_TRUE(guid == DIID___clsQmxBackProcess);
    EXPECT_EQ("0x80070057", Hex(provider->GetGUID(2, &guid)));
    EXPECT_TRUE(guid == GUID_NULL);
    EXPECT_EQ("0x80004003", Hex(provider->GetGUID(GUIDKIND_DEFAULT_SOURCE_DISP_IID, nullptr)));
}

TEST_F(Information, Members_HaveTheirFixedOrder) {
    ComPtr<ITypeInfo> type;
    ASSERT_EQ(S_OK, instance->GetTypeInfo(0, 0x409, type.Put()));
    EXPECT_EQ("_clsQmxBackProcess", NameOf(type.Get()));
    HREFTYPE reference = 0;
    ComPtr<ITypeInfo> table;
    ASSERT_EQ(S_OK, type->GetRefTypeOfImplType(static_cast<UINT>(-1), &reference));
    ASSERT_EQ(S_OK, type->GetRefTypeInfo(reference, table.Put()));
    std::vector<std::string> members;
    for (UINT i = 0; i < 4; ++i) {
        FUNCDESC* function = nullptr;
        ASSERT_EQ(S_OK, table->GetFuncDesc(i, &function));
        members.push_back(NameOf(table.Get(), function->memid) + " " + std::to_string(function->memid) + " kind " +
                          std::to_string(function->invkind) + " slot " + std::to_string(function->oVft / 4));
        table->ReleaseFuncDesc(function);
    }
    EXPECT_THAT(members, ElementsAre("Load 1 kind 1 slot 7", "NotifyMe 2 kind 1 slot 8", "SeverPath 3 kind 2 slot 9",
                                     "SeverPath 3 kind 4 slot 10"));
}

// Late binding uses a table of its own, which must match the type library.
TEST_F(Information, NamesOfLateBinding_MatchTheTypeLibrary) {
    ComPtr<ITypeInfo> type;
    ASSERT_EQ(S_OK, instance->GetTypeInfo(0, 0, type.Put()));
    const std::pair<DISPID, UINT> namesOfMembers[] = {{kLoad, 2}, {kNotifyMe, 3}, {kSeverPath, 1}};
    for (const auto& [member, expected] : namesOfMembers) {
        BSTR names[3] = {};
        UINT count = 0;
        ASSERT_EQ(S_OK, type->GetNames(member, names, 3, &count));
        ASSERT_EQ(expected, count);
        DISPID ids[3] = {};
        EXPECT_EQ(S_OK, instance->GetIDsOfNames(IID_NULL, names, count, 0, ids));
        EXPECT_EQ(member, ids[0]);
        for (UINT i = 1; i < count; ++i) EXPECT_EQ(static_cast<DISPID>(i - 1), ids[i]);
        for (BSTR name : names) SysFreeString(name);
    }
}

TEST_F(Information, GetTypeInfo_HasOneType) {
    UINT count = 0;
    EXPECT_EQ(S_OK, instance->GetTypeInfoCount(&count));
    EXPECT_EQ(1u, count);
    EXPECT_EQ("0x80004003", Hex(instance->GetTypeInfoCount(nullptr)));
    ComPtr<ITypeInfo> type;
    EXPECT_EQ("0x8002000B", Hex(instance->GetTypeInfo(1, 0, type.Put())));
    EXPECT_EQ("0x80004003", Hex(instance->GetTypeInfo(0, 0, nullptr)));
}

TEST_F(Information, ConnectionPoints_AreFoundAndEnumerated) {
    const auto container = Query<IConnectionPointContainer>(instance.Get(), IID_IConnectionPointContainer);
    ComPtr<IConnectionPoint> point;
    EXPECT_EQ("0x80040200", Hex(container->FindConnectionPoint(IID_IDispatch, point.Put())));
    EXPECT_EQ("0x80004003", Hex(container->FindConnectionPoint(DIID___clsQmxBackProcess, nullptr)));
    ComPtr<IEnumConnectionPoints> points;
    ASSERT_EQ(S_OK, container->EnumConnectionPoints(points.Put()));
    ASSERT_EQ(S_OK, points->Next(1, point.Put(), nullptr));
    IID iid{};
    EXPECT_EQ(S_OK, point->GetConnectionInterface(&iid));
    EXPECT_TRUE(iid == DIID___clsQmxBackProcess);
    ComPtr<IConnectionPointContainer> back;
    EXPECT_EQ(S_OK, point->GetConnectionPointContainer(back.Put()));
    EXPECT_EQ(container.Get(), back.Get());
    ULONG fetched = 9;
    IConnectionPoint* none[2] = {};
    EXPECT_EQ(S_FALSE, points->Next(2, none, &fetched));
    EXPECT_EQ(0u, fetched);
}

TEST_F(Information, Connections_AreEnumerated) {
    const auto sinks = {Sink::Make(), Sink::Make(), Sink::Make()};
    std::vector<DWORD> cookies;
    for (const auto& sink : sinks) cookies.push_back(Advise(instance.Get(), sink.Get()));
    ComPtr<IEnumConnections> connections;
    ASSERT_EQ(S_OK, EventsOf(instance.Get())->EnumConnections(connections.Put()));
    EventsOf(instance.Get())->Unadvise(cookies[0]);  // the enumerator has a copy of the connections

    CONNECTDATA data[4] = {};
    ULONG fetched = 0;
    EXPECT_EQ("0x80004003", Hex(connections->Next(2, data, nullptr)));
    EXPECT_EQ(S_OK, connections->Next(1, data, &fetched));
    EXPECT_EQ(cookies[0], data[0].dwCookie);
    data[0].pUnk->Release();
    ComPtr<IEnumConnections> clone;
    EXPECT_EQ(S_OK, connections->Clone(clone.Put()));
    EXPECT_EQ(S_OK, connections->Skip(2));
    EXPECT_EQ(S_FALSE, connections->Skip(1));
    EXPECT_EQ(S_FALSE, clone->Next(4, data, &fetched));
    EXPECT_EQ(2u, fetched);
    EXPECT_EQ(cookies[2], data[1].dwCookie);
    for (ULONG i = 0; i < fetched; ++i) data[i].pUnk->Release();
    EXPECT_EQ(S_OK, connections->Reset());
    EXPECT_EQ(S_OK, connections->Skip(3));
}

TEST_F(Information, Enumerator_WorksWithoutTheInstanceAndKeepsTheServer) {
    ComPtr<IEnumConnections> connections;
    ASSERT_EQ(S_OK, EventsOf(instance.Get())->EnumConnections(connections.Put()));
    instance.Reset();
    EXPECT_FALSE(host::com::CanUnload());
    EXPECT_EQ(S_FALSE, connections->Skip(1));
    connections.Reset();
    EXPECT_TRUE(host::com::CanUnload());
}

}  // namespace
}  // namespace tests::com
