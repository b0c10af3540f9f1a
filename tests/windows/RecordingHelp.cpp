// A help control that records its calls and opens nothing.
#include <cstdint>
#include <cstring>
#include <string>

namespace {

std::wstring& Record() {
    static std::wstring record;
    return record;
}

}  // namespace

extern "C" {

void* __stdcall HtmlHelpW(void* owner, const wchar_t* file, unsigned command, std::uintptr_t data) {
    Record() += std::to_wstring(reinterpret_cast<std::uintptr_t>(owner)) + L" " + file + L" " +
                std::to_wstring(command) + L" " + std::to_wstring(data) + L"\n";
    return nullptr;
}

/// A call of this function is recorded as a line that begins with "A ". Each byte of `file` is recorded as the
/// character whose code is the byte's value.
void* __stdcall HtmlHelpA(void* owner, const char* file, unsigned command, std::uintptr_t data) {
    Record() += L"A ";
    const auto* const bytes = reinterpret_cast<const unsigned char*>(file);
    return HtmlHelpW(owner, std::wstring(bytes, bytes + std::strlen(file)).c_str(), command, data);
}

/// Returns the calls since the library was loaded. Each call is one line: owner's window handle, file, command, data.
const wchar_t* __stdcall Recorded() {
    return Record().c_str();
}

}  // extern "C"
