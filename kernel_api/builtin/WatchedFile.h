// Reads a file once. Reads the file again when its path or its stamp (size and time) changes. Checks the stamp only
// once within an operation, unless the path changes.
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

    /// `files` must outlive the object. The object must outlive every operation in which it is used. A file larger than
    /// `maxBytes` is not read. It is treated as missing.
    explicit WatchedFile(runtime::FilesPort& files, std::uint64_t maxBytes = kAnySize)
        : files_(files), maxBytes_(maxBytes) {}

    /// An empty path means that there is no file.
    void SetPath(runtime::String path) {
        if (path == path_) return;
        path_ = std::move(path);
        changed_ = true;
    }

    /// True if the current operation has checked the file.
    bool IsChecked() const { return isChecked_; }

    /// If the path or the file has changed, calls `take` with the file's bytes, or without a value if there is no file.
    /// If a changed file cannot be read, does not call `take`, and the next check of the stamp tries again. Another
    /// program may be writing the file, for example. If the path has changed and the new file cannot be read, the file
    /// is treated as missing.
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
        // The next check tries again to read a file that could not be read. A too large file is tried again only after
        // a change.
        stamp_ = bytes || isTooLarge ? stamp : std::nullopt;
        changed_ = false;
        take(bytes);
    }

 private:
    runtime::FilesPort& files_;
    const std::uint64_t maxBytes_;
    runtime::String path_;
    std::optional<runtime::FileStamp> stamp_;  ///< stamp of the file that `take` received last
    bool changed_ = false;                     ///< true if the path has changed since then
    bool isChecked_ = false;                   ///< true if the current operation has checked the stamp
};

}  // namespace kernel_api::builtin
