// The texts whose addresses the kernel has handed out. Each thread has its own under every name, so that an address
// holds until the same thread asks for the same name again, whatever other threads do.
#pragma once

#include <cstdint>
#include <map>
#include <mutex>
#include <string>

namespace devkernel {

/// For any thread to call; `thread` is the caller's identifier.
class ThreadTexts {
 public:
    /// Keeps `text` in place of what `thread` had under `name`. The address of its zero-terminated bytes.
    const char* Keep(std::uint32_t thread, const std::string& name, std::string text);
    void Drop(std::uint32_t thread, const std::string& name);
    /// The thread has ended.
    void DropAll(std::uint32_t thread);

 private:
    std::mutex mutex_;
    std::map<std::uint32_t, std::map<std::string, std::string>> texts_;
};

}  // namespace devkernel
