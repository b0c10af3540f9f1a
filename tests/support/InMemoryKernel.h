// A kernel in plain memory for tests: it keeps the strings, logs every call, fails where a test says so, and can
// rewrite values as the real one may. Text crosses as Latin-1 here, with '?' for a character beyond it and up to
// the first NUL.
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
    /// Changes the bytes of a value while it is being stored under `key`.
    using Rewrite = std::function<void(const std::string& key, std::string& value)>;

    void E_SetString(runtime::StringView key, runtime::String& value) override;
    kernel_api::TextPointer E_GetString(runtime::StringView key) override;
    std::int32_t DB_DataBase() override;
    kernel_api::TextPointer O_GetName(std::int32_t handle) override;

    /// The calls in order, failed ones included: "E_SetString(INITBP, INIT)", "E_GetString(AllAps)", "DB_DataBase()",
    /// "O_GetName(1)"; in UTF-8.
    const std::vector<std::string>& Log() const { return log_; }
    void ClearLog() { log_.clear(); }

    /// Puts a string there as another module would: not logged, never failing.
    void Put(runtime::StringView key, runtime::StringView value);
    /// What is kept under `key`, not logged.
    std::optional<runtime::String> Kept(runtime::StringView key) const;

    /// The handle of the open design, 1 unless a test chooses another one.
    void UseDesignHandle(std::int32_t handle) { designHandle_ = handle; }

    /// Makes the call number `call` fail once; 1 is the next one.
    void FailAt(int call, const runtime::Error& error);
    /// Makes every call fail whose log line starts with `start`, such as "DB_DataBase" or "E_SetString(JobDir,".
    void FailOn(std::string start, const runtime::Error& error);
    void StopFailing();
    void RewriteValues(Rewrite rewrite) { rewrite_ = std::move(rewrite); }

 private:
    /// Each asks for a block of its own, so that a stale address is one that a sanitizer knows.
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
