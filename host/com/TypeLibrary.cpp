#include "host/com/TypeLibrary.h"

#include "host/com/Guard.h"
#include "host/com/Module.h"
#include "runtime/NeverDestroyed.h"

namespace host::com {
namespace {

ComPtr<ITypeLib> Open() {
    ComPtr<ITypeLib> library;
    Check(LoadTypeLibEx(runtime::win32::Wide(ModulePath()), REGKIND_NONE, library.Put()));
    return library;
}

/// Returns the type library. If reading it fails, the next call tries again.
ITypeLib& Library() {
    static const auto* const library = &runtime::NeverDestroyed<ComPtr<ITypeLib>>(Open());
    return *library->Get();
}

}  // namespace

void KeepTypeLibraryOpen() noexcept {
    runtime::IgnoreErrors([] { Library(); });
}

ComPtr<ITypeInfo> DescriptionOf(REFGUID guid) {
    ComPtr<ITypeInfo> description;
    Check(Library().GetTypeInfoOfGuid(guid, description.Put()));
    return description;
}

}  // namespace host::com
