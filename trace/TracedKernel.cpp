#include "trace/TracedKernel.h"

#include <algorithm>
#include <cstring>
#include <utility>

namespace trace {
namespace {

using kernel_api::TextPointer;

/// In every code page, this number of bytes contains at least kMaxCharacters characters.
constexpr std::size_t kMaxBytes = 4 * kMaxCharacters;

}  // namespace

void TracedKernel::E_SetString(StringView key, String& value) {
    Line line("E_SetString");
    line.Text("key", key).Text("given", value);
    WriteCall(
        output_, std::move(line),
        [&] {
            kernel_.E_SetString(key, value);
            return StringView(value);
        },
        [](Line& answered, StringView back) { answered.Text("back", back); });
}

TextPointer TracedKernel::E_GetString(StringView key) {
    Line line("E_GetString");
    line.Text("key", key);
    return WriteCall(
        output_, std::move(line), [&] { return kernel_.E_GetString(key); },
        [this](Line& answered, TextPointer pointer) { AddText(answered, pointer); });
}

std::int32_t TracedKernel::DB_DataBase() {
    return WriteCall(
        output_, Line("DB_DataBase"), [this] { return kernel_.DB_DataBase(); },
        [](Line& answered, std::int32_t handle) { answered.Number("handle", handle); });
}

TextPointer TracedKernel::O_GetName(std::int32_t handle) {
    Line line("O_GetName");
    line.Number("handle", handle);
    return WriteCall(
        output_, std::move(line), [&] { return kernel_.O_GetName(handle); },
        [this](Line& answered, TextPointer pointer) { AddText(answered, pointer); });
}

void TracedKernel::AddText(Line& line, TextPointer pointer) const noexcept {
    if (pointer == 0) {
        line.None("value");
        return;
    }
    if (!kernel_api::IsTextAddress(pointer)) {
        // The kernel has made a mistake, or returned a number.
        line.Number("pointer", pointer);
        return;
    }
    const char* const text = reinterpret_cast<const char*>(pointer);
    const std::size_t length = std::strlen(text);
    try {
        const String beginning = locale_.FromAnsi({text, std::min(length, kMaxBytes)});
        if (length > kMaxBytes) {
            line.Beginning("value", beginning, length, "bytes");
        } else {
            line.Text("value", beginning);
        }
    } catch (const std::exception& error) {
        line.Text("value", {}).Error(error);
    }
}

}  // namespace trace
