#include "host/com/ClassFactory.h"

#include <optional>

#include "host/com/Guard.h"
#include "host/com/HomeApartment.h"
#include "host/com/Implements.h"

namespace host::com {
namespace {

class ClassFactory final : public Implements<IClassFactory, ISupportErrorInfo> {
 public:
    explicit ClassFactory(FactoryKind kind) {
        if (kind == FactoryKind::kClient) server_.emplace();
    }

    HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown* outer, REFIID iid, void** object) override {
        return Guarded([&] {
            RequirePointer(object);
            *object = nullptr;
            if (outer != nullptr) {
                throw ComError(CLASS_E_NOAGGREGATION,
                               u"the class cannot be aggregated; create it without an outer object");
            }
            const ScopedReference held(static_cast<IClassFactory&>(*this));
            return CreateAtHome(iid, object);
        });
    }
    HRESULT STDMETHODCALLTYPE LockServer(BOOL lock) override {
        return Guarded([=] {
            com::LockServer(lock != FALSE);
            return S_OK;
        });
    }

    HRESULT STDMETHODCALLTYPE InterfaceSupportsErrorInfo(REFIID iid) override {
        return iid == IID_IClassFactory ? S_OK : S_FALSE;
    }

 private:
    std::optional<ServerReference> server_;
};

}  // namespace

ComPtr<IClassFactory> MakeClassFactory(FactoryKind kind) {
    return ComPtr<IClassFactory>::Attach(new ClassFactory(kind));
}

}  // namespace host::com
