#include "host/com/Server.h"

#include <optional>

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

std::optional<RegistrationScope> ScopeOf(const wchar_t* commandLine) {
    if (commandLine == nullptr || *commandLine == L'\0') return RegistrationScope::kMachine;
    const bool isUser = CompareStringOrdinal(commandLine, -1, L"user", -1, TRUE) == CSTR_EQUAL;
    return isUser ? std::optional(RegistrationScope::kUser) : std::nullopt;
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
    const std::optional<RegistrationScope> scope = ScopeOf(commandLine);
    return scope ? ChangeRegistration(install, *scope) : E_INVALIDARG;
}

}  // namespace host::com
