// A kernel library that records its calls. The key of a call determines how the library changes the value buffer.
#include <cctype>
#include <cstring>
#include <string>

namespace {

std::string& Record() {
    static std::string record;
    return record;
}

void Rewrite(const char* key, char* value) {
    const std::size_t length = std::strlen(value);
    if (std::strcmp(key, "upper") == 0) {
        for (std::size_t i = 0; i < length; ++i) {
            value[i] = static_cast<char>(std::toupper(static_cast<unsigned char>(value[i])));
        }
    }
    if (std::strcmp(key, "cut") == 0 && length > 2) value[2] = '\0';
    if (std::strcmp(key, "unterminated") == 0) value[length] = '!';
}

}  // namespace

extern "C" {

long __stdcall E_SetString(char* key, char* value) {
    Record() += "E_SetString(" + std::string(key) + ", " + value + ")\n";
    Rewrite(key, value);
    return 0;  // callers ignore the result
}

long __stdcall E_GetString(char* key) {
    Record() += "E_GetString(" + std::string(key) + ")\n";
    return std::strcmp(key, "negative") == 0 ? -5 : 0x1234;
}

long __stdcall DB_DataBase() {
    Record() += "DB_DataBase()\n";
    return -7;
}

long __stdcall O_GetName(long handle) {
    Record() += "O_GetName(" + std::to_string(handle) + ")\n";
    return 0x5678;
}

/// Returns the calls since the library was loaded. Each call is one line.
const char* __stdcall Recorded() {
    return Record().c_str();
}

}  // extern "C"
