// Finds the descriptions of failed COM calls.
#include "tools/ComFailure.h"

#include <cstdio>
#include <optional>

#include "host/com/Bstr.h"
#include "host/com/ComPtr.h"
#include "tools/Display.h"

namespace tools {

namespace {

std::string Text(HRESULT result, const std::string& description) {
    char number[sizeof "0x80000000 "];
    std::snprintf(number, sizeof number, "0x%08lX ", static_cast<unsigned long>(result));
    std::string text = number + description;
    if (description.empty()) text.pop_back();
    return text;
}

/// Takes the thread's error object and returns the object's description. Returns no value if there is no error object.
std::optional<std::string> TakeDescription() {
    host::com::ComPtr<IErrorInfo> information;
    if (GetErrorInfo(0, information.Put()) != S_OK) return std::nullopt;
    host::com::Bstr description;
    if (FAILED(information->GetDescription(description.Address()))) return std::string();
    return Display(description.Text());
}

}  // namespace

ComFailure::ComFailure(HRESULT result, std::string description) : result_(result), text_(Text(result, description)) {}

void ThrowIfFailed(HRESULT result) {
    if (SUCCEEDED(result)) return;
    const std::optional<std::string> description = TakeDescription();
    throw ComFailure(result, description && !description->empty() ? *description : SystemText(result));
}

void ClearErrorObject() {
    SetErrorInfo(0, nullptr);
}

void ThrowIfErrorObject() {
    if (const std::optional<std::string> description = TakeDescription()) throw ComFailure(E_FAIL, *description);
}

std::string SystemText(HRESULT result) {
    wchar_t text[512];
    const DWORD length =
        FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr, static_cast<DWORD>(result),
                       0, text, static_cast<DWORD>(std::size(text)), nullptr);
    runtime::StringView line(runtime::win32::Utf16(text), length);
    while (!line.empty() && (line.back() <= u' ' || line.back() == u'.')) line.remove_suffix(1);
    return Display(line);
}

}  // namespace tools
