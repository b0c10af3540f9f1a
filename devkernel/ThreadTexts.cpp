#include "devkernel/ThreadTexts.h"

#include <utility>

namespace devkernel {

const char* ThreadTexts::Store(std::uint32_t thread, const std::string& name, std::string text) {
    const std::scoped_lock lock(mutex_);
    std::string& kept = texts_[thread][name];
    kept = std::move(text);
    return kept.c_str();
}

void ThreadTexts::Drop(std::uint32_t thread, const std::string& name) {
    const std::scoped_lock lock(mutex_);
    const auto found = texts_.find(thread);
    if (found != texts_.end()) found->second.erase(name);
}

void ThreadTexts::DropAll(std::uint32_t thread) {
    const std::scoped_lock lock(mutex_);
    texts_.erase(thread);
}

}  // namespace devkernel
