#include "host/com/HomeApartment.h"

#include <atomic>
#include <utility>

#include "host/com/BackProcessObject.h"
#include "host/com/ClassFactory.h"
#include "host/com/ComPtr.h"
#include "host/com/Guard.h"
#include "host/com/HomeRegister.h"
#include "host/com/ServiceObject.h"

namespace host::com {
namespace {

constexpr int kAttempts = 3;

std::atomic<long> serverReferences{0};

HomeRegister homeRegister;

ComPtr<IGlobalInterfaceTable> InterfaceTable() {
    ComPtr<IGlobalInterfaceTable> table;
    Check(CoCreateInstance(CLSID_StdGlobalInterfaceTable, nullptr, CLSCTX_INPROC_SERVER, IID_IGlobalInterfaceTable,
                           table.PutVoid()));
    return table;
}

/// Never under the register's lock: COM may run calls of other apartments on this thread.
void Revoke(DWORD cookie) noexcept {
    if (cookie == 0) return;
    // An apartment that is gone has taken its entry along; then there is nothing left to do.
    Guarded([cookie] { return InterfaceTable()->RevokeInterfaceFromGlobal(cookie); });
}

void RequireSingleThreadedApartment() {
    APTTYPE type{};
    APTTYPEQUALIFIER qualifier{};
    Check(CoGetApartmentType(&type, &qualifier));
    if (type != APTTYPE_STA && type != APTTYPE_MAINSTA) {
        throw ComError(RPC_E_WRONG_THREAD,
                       u"this thread is in no single-threaded apartment; call CoInitialize or OleInitialize on it, or "
                       u"CoCreateInstance instead of the class factory");
    }
}

/// The way home; makes the calling thread's apartment the home when there is none.
HomeRegister::Entry Enter() {
    HomeRegister::Entry entry = homeRegister.Enter();
    Revoke(std::exchange(entry.unwantedCookie, 0));
    if (entry.generation != 0) return entry;

    // The register holds no lock meanwhile, so another thread may have been quicker.
    runtime::win32::KernelHandle thread = OwnThread();
    const ComPtr<IClassFactory> factory = MakeClassFactory(FactoryKind::kHome);
    DWORD cookie = 0;
    Check(InterfaceTable()->RegisterInterfaceInGlobal(factory.Get(), IID_IClassFactory, &cookie));
    entry = homeRegister.Settle(cookie, std::move(thread));
    Revoke(std::exchange(entry.unwantedCookie, 0));
    return entry;
}

struct Attempt {
    HRESULT result;
    bool isHomeLost;
};

bool MeansLost(HRESULT result) {
    constexpr HRESULT kLosses[] = {RPC_E_DISCONNECTED, RPC_E_SERVER_DIED, RPC_E_SERVER_DIED_DNE, CO_E_OBJNOTCONNECTED,
                                   static_cast<HRESULT>(0x800706BA)};  // the last one: RPC server unavailable
    for (const HRESULT loss : kLosses) {
        if (result == loss) return true;
    }
    return false;
}

Attempt CreateThrough(DWORD cookie, REFIID iid, void** object) {
    ComPtr<IClassFactory> factory;
    const HRESULT found = InterfaceTable()->GetInterfaceFromGlobal(cookie, IID_IClassFactory, factory.PutVoid());
    if (FAILED(found)) return {found, found != E_OUTOFMEMORY};
    const HRESULT created = factory->CreateInstance(nullptr, iid, object);
    return {created, MeansLost(created)};
}

}  // namespace

Residence::~Residence() {
    if (generation_ != 0) Revoke(homeRegister.Leave(generation_));
}

ServerReference::ServerReference() noexcept {
    ++serverReferences;
}
ServerReference::~ServerReference() {
    --serverReferences;
}

void LockServer(bool lock) noexcept {
    if (lock) {
        ++serverReferences;
    } else {
        --serverReferences;
    }
}

bool CanUnload() noexcept {
    const HomeRegister::Rest rest = homeRegister.LookForRest();
    Revoke(rest.unwantedCookie);
    return rest.isEmpty && serverReferences == 0;
}

HRESULT CreateAtHome(REFIID iid, void** object) {
    RequireSingleThreadedApartment();
    Attempt attempt{RPC_E_SERVER_DIED, true};
    for (int i = 0; i < kAttempts && attempt.isHomeLost; ++i) {
        HomeRegister::Entry entry = Enter();
        if (entry.isHere) return BackProcessObject::Create(Residence(entry.generation), iid, object);
        attempt = CreateThrough(entry.cookie, iid, object);
        if (attempt.isHomeLost) Revoke(homeRegister.Forget(entry.generation));
    }
    return attempt.result;
}

}  // namespace host::com
