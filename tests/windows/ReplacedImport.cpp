#include "tests/windows/ReplacedImport.h"

#include <gtest/gtest.h>

#include <string_view>

namespace tests {
namespace {

template <typename Part>
const Part* PartAt(const BYTE* program, std::size_t offset) {
    return reinterpret_cast<const Part*>(program + offset);
}

/// Returns the place in the import table of `program` that holds the address of `entry` from `library`. Returns null
/// if the program does not import `entry` from `library`.
ULONG_PTR* ImportIn(BYTE* program, const IMAGE_IMPORT_DESCRIPTOR& library, std::string_view entry) {
    const auto* name = PartAt<IMAGE_THUNK_DATA>(program, library.OriginalFirstThunk);
    auto* place = reinterpret_cast<ULONG_PTR*>(program + library.FirstThunk);
    for (; name->u1.AddressOfData != 0; ++name, ++place) {
        if (IMAGE_SNAP_BY_ORDINAL(name->u1.Ordinal)) continue;
        const auto* imported = PartAt<IMAGE_IMPORT_BY_NAME>(program, name->u1.AddressOfData);
        if (entry == reinterpret_cast<const char*>(imported->Name)) return place;
    }
    return nullptr;
}

ULONG_PTR* ImportOf(std::string_view entry) {
    auto* const program = reinterpret_cast<BYTE*>(GetModuleHandleW(nullptr));
    const auto* dos = PartAt<IMAGE_DOS_HEADER>(program, 0);
    const auto* headers = PartAt<IMAGE_NT_HEADERS>(program, static_cast<std::size_t>(dos->e_lfanew));
    const IMAGE_DATA_DIRECTORY& imports = headers->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT];
    const auto* library = PartAt<IMAGE_IMPORT_DESCRIPTOR>(program, imports.VirtualAddress);
    for (; library->Name != 0; ++library) {
        if (ULONG_PTR* const place = ImportIn(program, *library, entry)) return place;
    }
    return nullptr;
}

/// Writes to the import table, which the loader may have made read-only.
void WriteImport(ULONG_PTR* place, ULONG_PTR value) {
    DWORD before = 0;
    VirtualProtect(place, sizeof *place, PAGE_READWRITE, &before);
    *place = value;
    VirtualProtect(place, sizeof *place, before, &before);
}

}  // namespace

ReplacedImport::ReplacedImport(const char* entry, ULONG_PTR replacement) : place_(ImportOf(entry)) {
    if (!place_) {
        ADD_FAILURE() << "this program does not import " << entry;
        return;
    }
    original_ = *place_;
    WriteImport(place_, replacement);
}

ReplacedImport::~ReplacedImport() {
    if (place_) WriteImport(place_, original_);
}

}  // namespace tests
