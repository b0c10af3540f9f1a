#include "host/com/Server.h"

#include "host/com/ClassFactory.h"
#include "host/com/Guard.h"
#include "host/com/Module.h"
#include "host/com/Registration.h"

namespace host::com {
namespace {

HRESULT ChangeRegistration(bool install, RegistrationScope scope) noexcept {
    return Guarded([=] {
        if (install) {
            Register(scope);
        } else {
            Unregister(scope);
        }
        return S_OK;
    });
}

bool MeansUser(const wchar_t* commandLine) {
    return commandLine != nullptr && CompareStringOrdinal(commandLine, -1, L"user", -1, TRUE) == CSTR_EQUAL;
}

}  // namespace

HRESULT GetClassObject(REFCLSID classId, REFIID iid, void** object) noexcept {
    return Guarded([&] {
        RequirePointer(object);
        *object = nullptr;
        PinModule();
        if (classId != CLSID_clsQmxBackProcess) throw ComError(CLASS_E_CLASSNOTAVAILABLE);
        return MakeClassFactory(FactoryKind::kClient)->QueryInterface(iid, object);
    });
}

HRESULT RegisterServer() noexcept {
    return ChangeRegistration(true, RegistrationScope::kMachine);
}
HRESULT UnregisterServer() noexcept {
    return ChangeRegistration(false, RegistrationScope::kMachine);
}

HRESULT Install(bool install, const wchar_t* commandLine) noexcept {
    return MeansUser(commandLine) ? ChangeRegistration(install, RegistrationScope::kUser) : E_INVALIDARG;
}

}  // namespace host::com
