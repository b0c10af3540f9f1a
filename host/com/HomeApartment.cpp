#include "host/com/HomeApartment.h"

#include <atomic>
#include <utility>

#include "host/com/BackProcessObject.h"
#include "host/com/ClassFactory.h"
#include "host/com/ComPtr.h"
#include "host/com/Guard.h"
#include "host/com/HomeState.h"
#include "host/com/HomeWindow.h"
#include "host/com/PeerGone.h"
#include "runtime/NeverDestroyed.h"

namespace host::com {
namespace {

/// The maximum number of times that CreateAtHome tries to join the home and to create the instance there. A try fails
/// if the home ends between these two steps.
constexpr int kMaxAttempts = 20;

/// The home of the process, and the counts of the objects that keep the DLL in memory.
struct Server {
    HomeState home;
    // The two counts are separate, because a client that removes too many locks must not cancel another client's
    // reference.
    std::atomic<long> references = 0;
    std::atomic<long> locks = 0;
};

Server& server = runtime::NeverDestroyed<Server>();

HRESULT FindInterfaceTable(ComPtr<IGlobalInterfaceTable>& table) noexcept {
    return CoCreateInstance(CLSID_StdGlobalInterfaceTable, nullptr, CLSCTX_INPROC_SERVER, IID_IGlobalInterfaceTable,
                            table.PutVoid());
}

ComPtr<IGlobalInterfaceTable> InterfaceTable() {
    ComPtr<IGlobalInterfaceTable> table;
    Check(FindInterfaceTable(table));
    return table;
}

/// Revokes an entry. True if the table no longer has an entry with `cookie`. When an apartment ends, COM removes its
/// entry.
bool Revoke(DWORD cookie) noexcept {
    ComPtr<IGlobalInterfaceTable> table;
    if (FAILED(FindInterfaceTable(table))) return false;
    const HRESULT revoked = table->RevokeInterfaceFromGlobal(cookie);
    return SUCCEEDED(revoked) || revoked == E_INVALIDARG || IsPeerGone(revoked);
}

bool RevokeLink(HomeLink& link) noexcept {
    if (link.window != nullptr) HomeWindowPolicy::Close(std::exchange(link.window, nullptr));
    return link.cookie == 0 || Revoke(link.cookie);
}

/// Revokes the links to homes that have ended. This fails on a thread outside COM. A later call then tries again. The
/// caller must not hold the home state's lock, because COM may run calls of other apartments on this thread.
void RevokeStaleLinks() noexcept {
    HomeLinks failed;
    for (HomeLinks link = server.home.TakeStaleLink(); !link.empty(); link = server.home.TakeStaleLink()) {
        if (!RevokeLink(link.front())) failed.splice(failed.end(), link);
    }
    server.home.KeepStaleLinks(std::move(failed));
}

void RequireSingleThreadedApartment() {
    APTTYPE type{};
    APTTYPEQUALIFIER qualifier{};
    Check(CoGetApartmentType(&type, &qualifier));
    if (type != APTTYPE_STA && type != APTTYPE_MAINSTA) {
        throw ComError(
            RPC_E_WRONG_THREAD,
            u"this thread is not in a single-threaded apartment; call CoInitialize or OleInitialize first, or "
            u"use CoCreateInstance instead of the class factory");
    }
}

/// Joins the home. If there is no home, the calling thread's apartment becomes the home.
HomeState::Entry JoinHome() {
    HomeState::Entry entry = server.home.Join();
    RevokeStaleLinks();
    if (entry.generation != 0) return entry;

    // No lock is held here, so another thread may become the home first.
    HomeLinks link(1);
    runtime::win32::KernelHandle thread = OwnThread();
    HomeWindow window = MakeHomeWindow();
    const ComPtr<IClassFactory> factory = MakeClassFactory(FactoryKind::kHome);
    Check(InterfaceTable()->RegisterInterfaceInGlobal(factory.Get(), IID_IClassFactory, &link.front().cookie));
    link.front().window = window.Release();
    entry = server.home.JoinOrBecomeHome(std::move(link), std::move(thread));
    RevokeStaleLinks();
    return entry;
}

struct Attempt {
    HRESULT result;
    bool isHomeLost;
};

Attempt CreateThrough(DWORD cookie, REFIID iid, void** object) {
    ComPtr<IClassFactory> factory;
    const HRESULT found = InterfaceTable()->GetInterfaceFromGlobal(cookie, IID_IClassFactory, factory.PutVoid());
    if (FAILED(found)) return {found, found != E_OUTOFMEMORY};
    SetErrorInfo(0, nullptr);
    const HRESULT created = factory->CreateInstance(nullptr, iid, object);
    const bool isHomeLost = IsPeerGone(created);
    if (FAILED(created) && !isHomeLost) ThrowWithErrorObject(created);
    return {created, isHomeLost};
}

}  // namespace

HomeMembership::~HomeMembership() {
    if (generation_ == 0) return;
    server.home.RemoveInstance(generation_);
    RevokeStaleLinks();
}

bool HomeMembership::IsOnHomeThread() const noexcept {
    return threadId_ == GetCurrentThreadId() && server.home.IsCurrent(generation_);
}

void HomeMembership::RequireHomeThread() const {
    if (IsOnHomeThread()) return;
    throw ComError(
        RPC_E_WRONG_THREAD,
        u"this instance cannot be called on this thread, because it belongs to another apartment or its apartment has "
        u"ended; marshal the interface to this thread, or create an instance here");
}

ServerReference::ServerReference() noexcept {
    ++server.references;
}
ServerReference::~ServerReference() {
    --server.references;
}

void LockServer(bool lock) noexcept {
    if (lock) {
        ++server.locks;
        return;
    }
    long held = server.locks;
    while (held > 0 && !server.locks.compare_exchange_weak(held, held - 1)) {
    }
}

bool CanUnload() noexcept {
    // The first check may find that the home has ended. RevokeStaleLinks then revokes the home's link before the second
    // check.
    server.home.IsEmpty();
    RevokeStaleLinks();
    return server.home.IsEmpty() && server.references == 0 && server.locks == 0;
}

HRESULT CreateAtHome(REFIID iid, void** object) {
    RequireSingleThreadedApartment();
    Attempt attempt{RPC_E_SERVER_DIED, true};
    for (int i = 0; i < kMaxAttempts && attempt.isHomeLost; ++i) {
        const HomeState::Entry entry = JoinHome();
        if (entry.isHere) return BackProcessObject::Create(HomeMembership(entry.generation), iid, object);
        attempt = CreateThrough(entry.cookie, iid, object);
        if (attempt.isHomeLost) server.home.AbandonHome(entry.generation);
    }
    return attempt.result;
}

bool EndAtHome(BackProcessObject& instance) noexcept {
    const HWND home = server.home.WindowElsewhere();
    RevokeStaleLinks();
    return home != nullptr && PostEnd(home, instance);
}

}  // namespace host::com
