// A file that is read once, and again when its stamp or its path changes.
#pragma once

#include <cstdint>
#include <limits>
#include <optional>
#include <string>
#include <utility>

#include "runtime/FilesPort.h"

namespace kernel_api::builtin {

class WatchedFile {
 public:
    static constexpr std::uint64_t kAnySize = std::numeric_limits<std::uint64_t>::max();

    /// `files` must outlive the object. A file of more than `maxBytes` is treated as none, unread.
    explicit WatchedFile(runtime::FilesPort& files, std::uint64_t maxBytes = kAnySize)
        : files_(files), maxBytes_(maxBytes) {}

    /// The path may be empty: no file.
    void SetPath(runtime::String path) {
        if (path == path_) return;
        path_ = std::move(path);
        changed_ = true;
    }

    /// Calls `take` with the file's bytes if they were not taken yet, or with none when there is no file any more. A
    /// file that another program holds, perhaps to write it, counts as unchanged until it can be read.
    template <typename Take>
    void Refresh(Take&& take) {
        const auto stamp = path_.empty() ? std::nullopt : files_.Stamp(path_);
        if (!changed_ && stamp == stamp_) return;
        std::optional<std::string> bytes;
        const bool isTooLarge = stamp && stamp->size > maxBytes_;
        if (stamp && !isTooLarge) {
            bytes = files_.Read(path_);
            if (!bytes && !changed_) return;
        }
        // A file that could not be read is tried again; one that is too large is not, until it changes.
        stamp_ = bytes || isTooLarge ? stamp : std::nullopt;
        changed_ = false;
        take(bytes);
    }

 private:
    runtime::FilesPort& files_;
    const std::uint64_t maxBytes_;
    runtime::String path_;
    std::optional<runtime::FileStamp> stamp_;  ///< of what was taken
    bool changed_ = false;                     ///< another path since then
};

}  // namespace kernel_api::builtin
