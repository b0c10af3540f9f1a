#include "host/com/TypeLibrary.h"

#include "host/com/Guard.h"
#include "host/com/Module.h"

namespace host::com {

namespace {

ComPtr<ITypeLib> Open() {
    ComPtr<ITypeLib> library;
    Check(LoadTypeLibEx(runtime::win32::Wide(ModulePath()), REGKIND_NONE, library.Put()));
    return library;
}

}  // namespace

ComPtr<ITypeLib> OpenTypeLibrary() noexcept {
    ComPtr<ITypeLib> library;
    runtime::IgnoreErrors([&library] { library = Open(); });
    return library;
}

ComPtr<ITypeInfo> DescriptionOf(REFGUID guid) {
    const ComPtr<ITypeLib> library = Open();
    ComPtr<ITypeInfo> description;
    Check(library->GetTypeInfoOfGuid(guid, description.Put()));
    return description;
}

}  // namespace host::com
