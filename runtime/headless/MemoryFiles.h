// A file system in memory with the path rules of Windows. A test creates folders and files, and decides which calls
// fail. A log contains the calls.
#pragma once

#include <cstdint>
#include <map>
#include <vector>

#include "runtime/FilesPort.h"

namespace runtime::headless {

enum class FileKind { kOrdinary, kHidden, kSystem };

class MemoryFiles : public FilesPort {
 public:
    /// Starts with an empty drive C:, whose root is the current folder.
    MemoryFiles();

    String CurrentFolder() override;
    void ChangeFolder(StringView path) override;
    String FirstMatch(StringView pattern) override;
    std::optional<FileStamp> Stamp(StringView path) override;
    std::optional<std::string> Read(StringView path) override;

    /// Creates the folder, its parent folders and its drive.
    void AddFolder(StringView path);
    /// Creates or replaces the file, with a newer stamp each time. Creates its folder if it does not exist.
    void AddFile(StringView path, std::string_view contents = {}, FileKind kind = FileKind::kOrdinary);
    void RemoveFile(StringView path);
    /// After this call, ChangeFolder to `path` raises error `number`. If `number` is 0, ChangeFolder works again.
    void FailChange(StringView path, std::int32_t number);
    /// After this call, reading the file fails, as if another program had locked it. The file still has a stamp.
    void FailRead(StringView path);

    /// The calls, in order. The entries have these forms: "CurrentFolder", "ChangeFolder C:\x", "FirstMatch *.sch",
    /// "Stamp C:\a.ini", "Read C:\a.ini".
    const std::vector<String>& Log() const { return log_; }
    void ClearLog() { log_.clear(); }

 private:
    struct Entry {
        String path;  ///< the full path, in the letter case that it was created with
        bool isFolder = true;
        FileKind kind = FileKind::kOrdinary;
        std::string contents;
        FileStamp stamp;
        bool readFails = false;
    };

    void Record(StringView operation, StringView path);
    /// Returns the key of an entry: its full path in upper case. No value if `path` cannot be a path.
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
