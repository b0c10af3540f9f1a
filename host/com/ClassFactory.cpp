#include "host/com/ClassFactory.h"

#include <optional>

#include "host/com/Guard.h"
#include "host/com/HomeApartment.h"
#include "host/com/References.h"

namespace host::com {
namespace {

class ClassFactory final : public IClassFactory, public ISupportErrorInfo {
 public:
    explicit ClassFactory(FactoryKind kind) {
        if (kind == FactoryKind::kClient) server_.emplace();
    }
    ClassFactory(const ClassFactory&) = delete;
    ClassFactory& operator=(const ClassFactory&) = delete;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override {
        if (object == nullptr) return E_POINTER;
        *object = nullptr;
        if (iid == IID_IUnknown || iid == IID_IClassFactory) {
            *object = static_cast<IClassFactory*>(this);
        } else if (iid == IID_ISupportErrorInfo) {
            *object = static_cast<ISupportErrorInfo*>(this);
        } else {
            return E_NOINTERFACE;
        }
        AddRef();
        return S_OK;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return references_.Add(); }
    ULONG STDMETHODCALLTYPE Release() override {
        const ULONG left = references_.Drop();
        if (left == 0) delete this;
        return left;
    }

    HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown* outer, REFIID iid, void** object) override {
        return Guarded([&] {
            RequirePointer(object);
            *object = nullptr;
            if (outer != nullptr) {
                throw ComError(CLASS_E_NOAGGREGATION,
                               u"the class cannot be aggregated; create it without an outer object");
            }
            const Keep keep(static_cast<IClassFactory&>(*this));
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
    ~ClassFactory() = default;

    std::optional<ServerReference> server_;
    References references_;
};

}  // namespace

ComPtr<IClassFactory> MakeClassFactory(FactoryKind kind) {
    return ComPtr<IClassFactory>::Attach(new ClassFactory(kind));
}

}  // namespace host::com
