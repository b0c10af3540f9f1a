#include "runtime/headless/MemoryFiles.h"

#include <stdexcept>

#include "runtime/Error.h"
#include "runtime/headless/LetterCase.h"
#include "runtime/headless/WindowsPath.h"

namespace runtime::headless {
namespace {

String PathToMake(StringView path, StringView current) {
    const std::optional<String> full = FullPath(path, current);
    if (!full) throw std::invalid_argument("not a path: " + ToUtf8(path));
    return *full;
}

}  // namespace

MemoryFiles::MemoryFiles() {
    AddFolder(u"C:\\");
}

String MemoryFiles::CurrentFolder() {
    log_.emplace_back(u"CurrentFolder");
    return current_;
}

void MemoryFiles::ChangeFolder(StringView path) {
    Record(u"ChangeFolder", path);
    const std::optional<String> key = Key(path);
    if (!key) throw Error(kPathNotFound);
    if (const auto error = changeErrors_.find(*key); error != changeErrors_.end()) throw Error(error->second);
    const Entry* const folder = Find(path);
    if (folder && folder->isFolder) {
        current_ = folder->path;
        return;
    }
    const bool hasRoot = entries_.contains(String(RootOf(*key)));
    const bool isShare = key->starts_with(u"\\\\");
    throw Error(hasRoot || isShare ? kPathNotFound : kDeviceUnavailable);
}

String MemoryFiles::FirstMatch(StringView pattern) {
    Record(u"FirstMatch", pattern);
    if (pattern.empty()) return {};
    const auto nameAt = pattern.find_last_of(u"\\/:") + 1;
    const StringView folder = nameAt == 0 ? u"." : pattern.substr(0, nameAt);
    StringView namePattern = pattern.substr(nameAt);
    if (namePattern.empty()) namePattern = u"*";
    const std::optional<String> folderKey = Key(folder);
    if (!folderKey || namePattern.find_first_of(StringView(u"\0<>\"|", 5)) != StringView::npos) return {};
    for (const auto& [key, entry] : entries_) {
        if (entry.isFolder || entry.kind != FileKind::kOrdinary || ParentOf(key) != *folderKey) continue;
        String name = entry.path.substr(entry.path.rfind(u'\\') + 1);
        if (MatchesWildcards(name, namePattern)) return name;
    }
    return {};
}

std::optional<FileStamp> MemoryFiles::Stamp(StringView path) {
    Record(u"Stamp", path);
    const Entry* const file = FindFile(path);
    if (!file) return std::nullopt;
    return file->stamp;
}

std::optional<std::string> MemoryFiles::Read(StringView path) {
    Record(u"Read", path);
    const Entry* const file = FindFile(path);
    if (!file || file->readFails) return std::nullopt;
    return file->contents;
}

void MemoryFiles::AddFolder(StringView path) {
    String folder = PathToMake(path, current_);
    for (;;) {
        Entry entry;
        entry.path = folder;
        entries_.try_emplace(UpperCase(folder), entry);
        const String parent(ParentOf(folder));
        if (parent == folder) return;
        folder = parent;
    }
}

void MemoryFiles::AddFile(StringView path, std::string_view contents, FileKind kind) {
    Entry entry;
    entry.path = PathToMake(path, current_);
    entry.isFolder = false;
    entry.kind = kind;
    entry.contents = contents;
    entry.stamp = {++clock_, contents.size()};
    AddFolder(ParentOf(entry.path));
    entries_[UpperCase(entry.path)] = entry;
}

void MemoryFiles::RemoveFile(StringView path) {
    if (const auto key = Key(path)) entries_.erase(*key);
}

void MemoryFiles::FailChange(StringView path, std::int32_t number) {
    const String key = UpperCase(PathToMake(path, current_));
    if (number == 0) {
        changeErrors_.erase(key);
    } else {
        changeErrors_[key] = number;
    }
}

void MemoryFiles::FailRead(StringView path) {
    Entry* const file = FindFile(path);
    if (!file) throw std::invalid_argument("no such file: " + ToUtf8(path));
    file->readFails = true;
}

void MemoryFiles::Record(StringView operation, StringView path) {
    log_.push_back(String(operation).append(u" ").append(path));
}

std::optional<String> MemoryFiles::Key(StringView path) const {
    const std::optional<String> full = FullPath(path, current_);
    if (!full) return std::nullopt;
    return UpperCase(*full);
}

MemoryFiles::Entry* MemoryFiles::Find(StringView path) {
    const std::optional<String> key = Key(path);
    if (!key) return nullptr;
    const auto found = entries_.find(*key);
    return found == entries_.end() ? nullptr : &found->second;
}

MemoryFiles::Entry* MemoryFiles::FindFile(StringView path) {
    Entry* const entry = Find(path);
    return entry && !entry->isFolder ? entry : nullptr;
}

}  // namespace runtime::headless
