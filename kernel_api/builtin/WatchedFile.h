// A file that is read once, and again when its path or its stamp (size and time) changes. Within an operation the stamp
// is checked once.
#pragma once

#include <cstdint>
#include <limits>
#include <optional>
#include <string>
#include <utility>

#include "runtime/FilesPort.h"
#include "runtime/Operation.h"

namespace kernel_api::builtin {

class WatchedFile {
 public:
    static constexpr std::uint64_t kAnySize = std::numeric_limits<std::uint64_t>::max();

    /// `files` must outlive the object; the object must outlive every operation in which it is used. A file larger than
    /// `maxBytes` is not read; it counts as missing.
    explicit WatchedFile(runtime::FilesPort& files, std::uint64_t maxBytes = kAnySize)
        : files_(files), maxBytes_(maxBytes) {}

    /// An empty path means no file.
    void SetPath(runtime::String path) {
        if (path == path_) return;
        path_ = std::move(path);
        changed_ = true;
    }

    /// If the path or the file has changed, calls `take` with the file's bytes, or with none if there is no file. A
    /// file that cannot be read, for example because another program is writing it, counts as unchanged until it can be
    /// read. After a change of the path it counts as missing.
    template <typename Take>
    void Refresh(Take&& take) {
        if (!changed_ && isChecked_) return;
        const auto stamp = path_.empty() ? std::nullopt : files_.Stamp(path_);
        isChecked_ = runtime::Operation::KeepUntilEnd([this] { isChecked_ = false; });
        if (!changed_ && stamp == stamp_) return;
        std::optional<std::string> bytes;
        const bool isTooLarge = stamp && stamp->size > maxBytes_;
        if (stamp && !isTooLarge) {
            bytes = files_.Read(path_);
            if (!bytes && !changed_) return;
        }
        // Try again to read a file that could not be read. Do not try a file that is too large until it changes.
        stamp_ = bytes || isTooLarge ? stamp : std::nullopt;
        changed_ = false;
        take(bytes);
    }

 private:
    runtime::FilesPort& files_;
    const std::uint64_t maxBytes_;
    runtime::String path_;
    std::optional<runtime::FileStamp> stamp_;  ///< of the file that `take` received last
    bool changed_ = false;                     ///< the path has changed since
    bool isChecked_ = false;                   ///< in the current operation
};

}  // namespace kernel_api::builtin
