#include "host/com/Enumerator.h"

#include <algorithm>
#include <utility>

#include "host/com/Guard.h"
#include "host/com/HomeApartment.h"
#include "host/com/Implements.h"

namespace host::com {
namespace {

struct PointPolicy {
    using Interface = IEnumConnectionPoints;
    using Item = IConnectionPoint*;
    using Owned = ComPtr<IConnectionPoint>;
    static Item HandOut(Owned point) { return point.Detach(); }
};

struct ConnectionPolicy {
    using Interface = IEnumConnections;
    using Item = CONNECTDATA;
    using Owned = Connection;
    static Item HandOut(Owned connection) { return {connection.sink.Detach(), connection.cookie}; }
};

template <typename Policy>
class Enumerator final : public Implements<typename Policy::Interface> {
 public:
    using Item = typename Policy::Item;
    using Items = std::vector<typename Policy::Owned>;

    explicit Enumerator(Items items, std::size_t next = 0) : items_(std::move(items)), next_(next) {}

    /// `fetched` may be null only if `count` is 1.
    HRESULT STDMETHODCALLTYPE Next(ULONG count, Item* items, ULONG* fetched) override {
        if (fetched != nullptr) *fetched = 0;
        if (items == nullptr || (fetched == nullptr && count != 1)) return E_POINTER;
        const ULONG given = std::min(count, Left());
        for (ULONG i = 0; i < given; ++i) items[i] = Policy::HandOut(items_[next_++]);
        if (fetched != nullptr) *fetched = given;
        return given == count ? S_OK : S_FALSE;
    }
    HRESULT STDMETHODCALLTYPE Skip(ULONG count) override {
        const ULONG skipped = std::min(count, Left());
        next_ += skipped;
        return skipped == count ? S_OK : S_FALSE;
    }
    HRESULT STDMETHODCALLTYPE Reset() override {
        next_ = 0;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE Clone(typename Policy::Interface** clone) override {
        return Guarded([&] {
            RequirePointer(clone);
            *clone = nullptr;
            *clone = new Enumerator(items_, next_);
            return S_OK;
        });
    }

 private:
    ULONG Left() const { return static_cast<ULONG>(items_.size() - next_); }

    // This member is declared first and destroyed last, because releasing the items may still run this DLL's code.
    ServerReference server_;
    Items items_;
    std::size_t next_;
};

}  // namespace

ComPtr<IEnumConnectionPoints> EnumerateConnectionPoints(std::vector<ComPtr<IConnectionPoint>> points) {
    return ComPtr<IEnumConnectionPoints>::Attach(new Enumerator<PointPolicy>(std::move(points)));
}

ComPtr<IEnumConnections> EnumerateConnections(std::vector<Connection> connections) {
    return ComPtr<IEnumConnections>::Attach(new Enumerator<ConnectionPolicy>(std::move(connections)));
}

}  // namespace host::com
