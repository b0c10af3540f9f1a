// A file system in memory with the system's rules of paths, for tests: they lay out folders and files, choose what
// fails, and read from the log what was asked.
#pragma once

#include <cstdint>
#include <map>
#include <vector>

#include "runtime/FilesPort.h"

namespace runtime::headless {

enum class FileKind { kOrdinary, kHidden, kSystem };

class MemoryFiles : public FilesPort {
 public:
    /// Has an empty drive C:, whose root is the current folder.
    MemoryFiles();

    String CurrentFolder() override;
    void ChangeFolder(StringView path) override;
    String FirstMatch(StringView pattern) override;
    std::optional<FileStamp> Stamp(StringView path) override;
    std::optional<std::string> Read(StringView path) override;

    /// Makes the folder, those above it, and its drive.
    void AddFolder(StringView path);
    /// Makes or replaces the file, with a newer stamp each time, and its folder.
    void AddFile(StringView path, std::string_view contents = {}, FileKind kind = FileKind::kOrdinary);
    void RemoveFile(StringView path);
    /// Changing to `path` raises error `number` from now on; 0 lets it succeed again if the folder is there.
    void FailChange(StringView path, std::int32_t number);
    /// The file is seen, but reading it fails, as with one that another program holds.
    void FailRead(StringView path);

    /// What was asked, in order: "CurrentFolder", "ChangeFolder C:\x", "FirstMatch *.sch", "Stamp …", "Read …".
    const std::vector<String>& Log() const { return log_; }
    void ClearLog() { log_.clear(); }

 private:
    struct Entry {
        String path;  ///< full, in the letter case it was made with
        bool isFolder = true;
        FileKind kind = FileKind::kOrdinary;
        std::string contents;
        FileStamp stamp;
        bool readFails = false;
    };

    void Note(StringView operation, StringView path);
    /// Full path in upper case, by which entries are found; none when `path` cannot be one.
    std::optional<String> Key(StringView path) const;
    Entry* Find(StringView path);
    Entry* FindFile(StringView path);

    std::map<String, Entry> entries_;
    std::map<String, std::int32_t> changeErrors_;
    String current_ = u"C:\\";
    std::uint64_t clock_ = 0;
    std::vector<String> log_;
};

}  // namespace runtime::headless
