#include "runtime/headless/WindowsPath.h"

#include <algorithm>
#include <vector>

#include "runtime/headless/LetterCase.h"

namespace runtime::headless {
namespace {

constexpr StringView kForbidden{u"\0<>\"|*?", 7};

bool HasDrive(StringView path) {
    const char16_t letter = path.empty() ? u'\0' : UpperCase(path[0]);
    return path.size() >= 2 && path[1] == u':' && letter >= u'A' && letter <= u'Z';
}

/// Returns the length of the root in a share's path. The root is \\server\share, with the backslash after it if there
/// is one.
std::size_t ShareRootLength(StringView path) {
    const auto server = path.find(u'\\', 2);
    if (server == StringView::npos) return path.size();
    const auto share = path.find(u'\\', server + 1);
    return share == StringView::npos ? path.size() : share + 1;
}

/// Returns `name` without the blanks and periods at the end.
StringView WithoutTail(StringView name) {
    return name.substr(0, name.find_last_not_of(u". ") + 1);
}

void AppendParts(std::vector<StringView>& parts, StringView path) {
    while (!path.empty()) {
        const auto end = std::min(path.find(u'\\'), path.size());
        const StringView part = path.substr(0, end);
        path.remove_prefix(std::min(end + 1, path.size()));
        if (part == u"..") {
            if (!parts.empty()) parts.pop_back();
        } else if (const StringView name = WithoutTail(part); !name.empty()) {
            parts.push_back(name);
        }
    }
}

String Joined(StringView root, const std::vector<StringView>& parts) {
    String path(root);
    if (path.back() != u'\\') path += u'\\';
    for (const StringView part : parts) {
        path += part;
        path += u'\\';
    }
    if (!parts.empty()) path.pop_back();
    return path;
}

String DriveRoot(char16_t letter) {
    return {UpperCase(letter), u':', u'\\'};
}

}  // namespace

std::optional<String> FullPath(StringView path, StringView current) {
    if (path.empty() || path.find_first_of(kForbidden) != StringView::npos) return std::nullopt;
    String slashed(path);
    std::replace(slashed.begin(), slashed.end(), u'/', u'\\');
    StringView rest = slashed;
    String root(RootOf(current));
    std::vector<StringView> parts;
    bool fromCurrent = false;
    if (rest.starts_with(u"\\\\")) {
        root = rest.substr(0, ShareRootLength(rest));
        rest.remove_prefix(root.size());
    } else if (HasDrive(rest)) {
        const String drive = DriveRoot(rest[0]);
        fromCurrent = drive == root && !rest.substr(2).starts_with(u'\\');
        root = drive;
        rest.remove_prefix(2);
    } else {
        fromCurrent = !rest.starts_with(u'\\');
    }
    if (rest.find(u':') != StringView::npos) return std::nullopt;
    if (fromCurrent) AppendParts(parts, current.substr(root.size()));
    AppendParts(parts, rest);
    return Joined(root, parts);
}

StringView RootOf(StringView fullPath) {
    return fullPath.substr(0, fullPath.starts_with(u"\\\\") ? ShareRootLength(fullPath) : 3);
}

StringView ParentOf(StringView fullPath) {
    const StringView root = RootOf(fullPath);
    const auto slash = fullPath.rfind(u'\\');
    return slash < root.size() ? root : fullPath.substr(0, slash);
}

bool MatchesWildcards(StringView name, StringView pattern) {
    if (name.empty()) return pattern.find_first_not_of(u"*?.") == StringView::npos;
    if (pattern.empty()) return false;
    if (pattern[0] == u'*') {
        return MatchesWildcards(name, pattern.substr(1)) || MatchesWildcards(name.substr(1), pattern);
    }
    const bool fits = pattern[0] == u'?' || UpperCase(pattern[0]) == UpperCase(name[0]);
    return fits && MatchesWildcards(name.substr(1), pattern.substr(1));
}

}  // namespace runtime::headless
