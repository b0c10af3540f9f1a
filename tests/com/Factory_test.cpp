// Tests the class factory, and which objects keep the server in memory.
#include <thread>

#include "host/com/HomeApartment.h"
#include "host/com/Server.h"
#include "tests/com/ComTest.h"

namespace tests::com {
namespace {

using host::com::CanUnload;

class FactoryTest : public ComTest {};

TEST_F(FactoryTest, UnknownClassOrInterface_IsRefused) {
    ComPtr<IClassFactory> factory;
    EXPECT_EQ("0x80040111", Hex(host::com::GetClassObject(IID_IUnknown, IID_IClassFactory, factory.PutVoid())));
    EXPECT_EQ("0x80004002", Hex(host::com::GetClassObject(CLSID_clsQmxBackProcess, IID_IDispatch, factory.PutVoid())));
    EXPECT_FALSE(factory);
    EXPECT_EQ("0x80004003", Hex(host::com::GetClassObject(CLSID_clsQmxBackProcess, IID_IClassFactory, nullptr)));
}

TEST_F(FactoryTest, Aggregation_IsRefused) {
    const auto outer = MakeInstance();
    ComPtr<IUnknown> inner;
    EXPECT_EQ("0x80040110", Hex(Factory()->CreateInstance(outer.Get(), IID_IUnknown, inner.PutVoid())));
    EXPECT_EQ("the class cannot be aggregated; create it without an outer object", TakeErrorObject().description);
    EXPECT_FALSE(inner);
}

TEST_F(FactoryTest, UnknownInterface_LeavesNoInstance) {
    ComPtr<IUnknown> none;
    EXPECT_EQ("0x80004002", Hex(Factory()->CreateInstance(nullptr, IID_IExternalConnection, none.PutVoid())));
    EXPECT_EQ("0x80004003", Hex(Factory()->CreateInstance(nullptr, IID_IUnknown, nullptr)));
    EXPECT_THAT(TheDouble().log, testing::ElementsAre());
    EXPECT_TRUE(CanUnload());
}

TEST_F(FactoryTest, Call_ClearsTheErrorObjectOfOtherComponents) {
    const auto factory = Factory();
    const auto support = Query<ISupportErrorInfo>(factory.Get(), IID_ISupportErrorInfo);
    ASSERT_TRUE(support);
    EXPECT_EQ(S_OK, support->InterfaceSupportsErrorInfo(IID_IClassFactory));
    EXPECT_EQ(S_FALSE, support->InterfaceSupportsErrorInfo(IID_IUnknown));
    EXPECT_EQ(Query<IUnknown>(support.Get(), IID_IUnknown).Get(), Query<IUnknown>(factory.Get(), IID_IUnknown).Get());

    ComPtr<IUnknown> made;
    LeaveErrorObject(u"foreign");
    EXPECT_EQ("0x80004002", Hex(factory->CreateInstance(nullptr, IID_IExternalConnection, made.PutVoid())));
    EXPECT_EQ("(none)", TextOfErrorObject());
    LeaveErrorObject(u"foreign");
    EXPECT_EQ(S_OK, factory->CreateInstance(nullptr, IID_IUnknown, made.PutVoid()));
    EXPECT_EQ("(none)", TextOfErrorObject());
    LeaveErrorObject(u"foreign");
    EXPECT_EQ(S_OK, factory->LockServer(TRUE));
    EXPECT_EQ(S_OK, factory->LockServer(FALSE));
    EXPECT_EQ("(none)", TextOfErrorObject());
}

TEST_F(FactoryTest, CreationFails_ReturnsTheError) {
    TheDouble().makeError = 53;
    ComPtr<IUnknown> none;
    EXPECT_EQ("0x800A0035", Hex(Factory()->CreateInstance(nullptr, IID_IUnknown, none.PutVoid())));
    EXPECT_EQ("File not found", TakeErrorObject().description);
    EXPECT_TRUE(CanUnload());
}

TEST_F(FactoryTest, FactoriesInstancesAndLocks_KeepTheServer) {
    auto factory = Factory();
    EXPECT_FALSE(CanUnload());
    factory->LockServer(TRUE);
    factory->LockServer(TRUE);
    factory.Reset();
    EXPECT_FALSE(CanUnload());
    Factory()->LockServer(FALSE);
    EXPECT_FALSE(CanUnload());
    Factory()->LockServer(FALSE);
    EXPECT_TRUE(CanUnload());
    auto instance = MakeInstance();
    EXPECT_FALSE(CanUnload());
    instance.Reset();
    EXPECT_TRUE(CanUnload());
}

TEST_F(FactoryTest, UnlockedTooOften_FactoriesAndLocksStillCount) {
    auto factory = Factory();
    factory->LockServer(TRUE);
    factory->LockServer(FALSE);
    factory->LockServer(FALSE);
    EXPECT_FALSE(CanUnload()) << "the DLL can be unloaded, but a factory exists";
    factory->LockServer(TRUE);
    factory.Reset();
    EXPECT_FALSE(CanUnload()) << "the DLL can be unloaded, but the server is locked";
    Factory()->LockServer(FALSE);
    EXPECT_TRUE(CanUnload());
}

TEST_F(FactoryTest, HomeFactoryIsStillRegistered_KeepsTheServer) {
    TheDouble().liveWindows = 1;
    MakeInstance();
    TheDouble().liveWindows = 0;
    // Only a thread that uses COM can remove the home's factory from the process's table.
    std::thread([] { EXPECT_FALSE(CanUnload()); }).join();
    EXPECT_TRUE(CanUnload());
}

TEST_F(FactoryTest, ExistingWindow_KeepsTheServer) {
    TheDouble().liveWindows = 1;
    EXPECT_FALSE(CanUnload());
    TheDouble().liveWindows = 0;
    EXPECT_TRUE(CanUnload());
}

TEST_F(FactoryTest, ThreadWithoutCom_CreationIsRefused) {
    CoUninitialize();
    ComPtr<IUnknown> none;
    EXPECT_EQ("0x800401F0", Hex(Factory()->CreateInstance(nullptr, IID_IUnknown, none.PutVoid())));
    CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
}

}  // namespace
}  // namespace tests::com
