#include "host/com/TypeLibrary.h"

#include "host/com/Guard.h"
#include "host/com/Module.h"

namespace host::com {

ComPtr<ITypeInfo> DescriptionOf(REFGUID guid) {
    ComPtr<ITypeLib> library;
    Check(LoadTypeLibEx(runtime::win32::Wide(ModulePath()), REGKIND_NONE, library.Put()));
    ComPtr<ITypeInfo> description;
    Check(library->GetTypeInfoOfGuid(guid, description.Put()));
    return description;
}

}  // namespace host::com
