// Stores the texts whose addresses the kernel has returned. Each thread has its own text under each name. An address is
// valid until the same thread stores or drops the text under the same name, or ends. Calls of other threads do not
// affect the address.
#pragma once

#include <cstdint>
#include <map>
#include <mutex>
#include <string>

namespace devkernel {

/// Any thread may call the functions. `thread` is the identifier of the calling thread.
class ThreadTexts {
 public:
    /// Replaces the text of `thread` under `name` with `text`. Returns the address of the zero-terminated bytes.
    const char* Store(std::uint32_t thread, const std::string& name, std::string text);
    void Drop(std::uint32_t thread, const std::string& name);
    /// Removes all texts of `thread`. Must be called when the thread ends.
    void DropAll(std::uint32_t thread);

 private:
    std::mutex mutex_;
    std::map<std::uint32_t, std::map<std::string, std::string>> texts_;
};

}  // namespace devkernel
