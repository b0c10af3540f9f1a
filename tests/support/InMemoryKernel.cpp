#include "tests/support/InMemoryKernel.h"

#include <algorithm>
#include <utility>

namespace tests {
namespace {

using kernel_api::TextPointer;
using runtime::String;
using runtime::StringView;

constexpr const char* kDesignNameKey = "DESIGN_NAME";

std::string ToBytes(StringView text) {
    std::string bytes;
    for (const char16_t c : text.substr(0, text.find(u'\0'))) bytes.push_back(c > 0xFF ? '?' : static_cast<char>(c));
    return bytes;
}

String FromBytes(const std::string& bytes) {
    String text;
    for (const char c : bytes) text.push_back(static_cast<unsigned char>(c));
    return text;
}

std::string ForLog(const std::string& bytes) {
    return runtime::ToUtf8(FromBytes(bytes));
}

}  // namespace

void InMemoryKernel::Enter(std::string line) {
    ++calls_;
    log_.push_back(std::move(line));
    if (const auto failing = failingCalls_.extract(calls_)) throw runtime::Error(failing.mapped());
    for (const auto& [start, error] : failingStarts_) {
        if (log_.back().starts_with(start)) throw runtime::Error(error);
    }
}

void InMemoryKernel::E_SetString(StringView key, String& value) {
    const std::string keyBytes = ToBytes(key);
    std::string valueBytes = ToBytes(value);
    Enter("E_SetString(" + ForLog(keyBytes) + ", " + ForLog(valueBytes) + ")");
    if (rewrite_) rewrite_(keyBytes, valueBytes);
    valueBytes.resize(std::min(valueBytes.size(), valueBytes.find('\0')));
    value = FromBytes(valueBytes);
    strings_[keyBytes] = std::move(valueBytes);
}

TextPointer InMemoryKernel::E_GetString(StringView key) {
    const std::string keyBytes = ToBytes(key);
    Enter("E_GetString(" + ForLog(keyBytes) + ")");
    return HandOut(handedOut_[keyBytes], keyBytes);
}

std::int32_t InMemoryKernel::DB_DataBase() {
    Enter("DB_DataBase()");
    return designHandle_;
}

TextPointer InMemoryKernel::O_GetName(std::int32_t handle) {
    Enter("O_GetName(" + std::to_string(handle) + ")");
    return handle == designHandle_ ? HandOut(designName_, kDesignNameKey) : 0;
}

TextPointer InMemoryKernel::HandOut(HandedOut& handedOut, const std::string& key) {
    const auto found = strings_.find(key);
    if (found == strings_.end()) return 0;
    const std::string& text = found->second;
    handedOut = std::make_unique<char[]>(text.size() + 1);
    std::copy(text.begin(), text.end(), handedOut.get());
    return reinterpret_cast<TextPointer>(handedOut.get());
}

void InMemoryKernel::Put(StringView key, StringView value) {
    strings_[ToBytes(key)] = ToBytes(value);
}

std::optional<String> InMemoryKernel::Kept(StringView key) const {
    const auto found = strings_.find(ToBytes(key));
    if (found == strings_.end()) return std::nullopt;
    return FromBytes(found->second);
}

void InMemoryKernel::FailAt(int call, const runtime::Error& error) {
    failingCalls_.insert_or_assign(calls_ + call, error);
}

void InMemoryKernel::FailOn(std::string start, const runtime::Error& error) {
    failingStarts_.emplace_back(std::move(start), error);
}

void InMemoryKernel::StopFailing() {
    failingCalls_.clear();
    failingStarts_.clear();
}

}  // namespace tests
