// A kernel in memory for tests. It stores the strings and logs every call. A test can make calls fail. A test can also
// make this kernel change values, as a real kernel may. Texts are converted to Latin-1 and end at the first NUL.
// Characters outside Latin-1 become '?'.
#pragma once

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "kernel_api/Kernel.h"
#include "runtime/Error.h"

namespace tests {

class InMemoryKernel : public kernel_api::Kernel {
 public:
    /// Changes the bytes of a value while the kernel stores the value under `key`.
    using Rewrite = std::function<void(const std::string& key, std::string& value)>;

    void E_SetString(runtime::StringView key, runtime::String& value) override;
    kernel_api::TextPointer E_GetString(runtime::StringView key) override;
    std::int32_t DB_DataBase() override;
    kernel_api::TextPointer O_GetName(std::int32_t handle) override;

    /// All calls in order and in UTF-8, including failed calls: "E_SetString(INITBP, INIT)", "E_GetString(AllAps)",
    /// "DB_DataBase()", "O_GetName(1)".
    const std::vector<std::string>& Log() const { return log_; }
    void ClearLog() { log_.clear(); }

    /// Stores a string as another module does. This call is not logged and never fails.
    void Put(runtime::StringView key, runtime::StringView value);
    /// Returns the value of `key`. This call is not logged.
    std::optional<runtime::String> Kept(runtime::StringView key) const;

    /// Sets the handle of the open design, which is 1 by default.
    void UseDesignHandle(std::int32_t handle) { designHandle_ = handle; }

    /// Makes one later call fail. If `call` is 1, the next call fails; if `call` is 2, the call after that fails, and
    /// so on.
    void FailAt(int call, const runtime::Error& error);
    /// Makes a call fail if its log line starts with `start`, for example "DB_DataBase" or "E_SetString(JobDir,".
    void FailOn(std::string start, const runtime::Error& error);
    void StopFailing();
    void RewriteValues(Rewrite rewrite) { rewrite_ = std::move(rewrite); }

 private:
    /// Each returned text has its own block of memory. So a sanitizer detects the use of a stale address.
    using HandedOut = std::unique_ptr<char[]>;

    void Enter(std::string line);
    kernel_api::TextPointer HandOut(HandedOut& handedOut, const std::string& key);

    std::map<std::string, std::string> strings_;
    std::map<std::string, HandedOut> handedOut_;
    HandedOut designName_;
    std::int32_t designHandle_ = 1;
    std::vector<std::string> log_;
    int calls_ = 0;
    std::map<int, runtime::Error> failingCalls_;
    std::vector<std::pair<std::string, runtime::Error>> failingStarts_;
    Rewrite rewrite_;
};

}  // namespace tests
