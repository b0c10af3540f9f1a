#include "kernel_api/win32/KernelLibrary.h"

#include <algorithm>
#include <string_view>
#include <utility>

#include "runtime/Error.h"
#include "runtime/ProgramFile.h"
#include "runtime/win32/ModulePath.h"
#include "runtime/win32/QuietErrors.h"
#include "runtime/win32/Switch.h"
#include "runtime/win32/TrustedLibrary.h"
#include "runtime/win32/Win32Files.h"
#include "runtime/win32/Win32Locale.h"

namespace kernel_api::win32 {
namespace {

using runtime::Error;
using runtime::win32::FolderOf;
using runtime::win32::Library;
using runtime::win32::ModulePath;
using runtime::win32::QuietErrors;
using runtime::win32::Wide;

constexpr const char16_t* kFileName = u"QmxKrn2K.dll";

String PathIn(const String& folder, StringView file = kFileName) {
    if (folder.empty()) return {};
    return folder + (folder.back() == u'\\' ? u"" : u"\\") + String(file);
}

bool IsFile(const String& path) {
    const DWORD attributes = path.empty() ? INVALID_FILE_ATTRIBUTES : GetFileAttributesW(Wide(path));
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) == 0;
}

bool IsAskedForDevelopmentKernel() {
    return runtime::win32::IsSwitchedOn(kAskForDevelopmentKernel);
}

/// Returns the reason why the file at `path` does not load.
String Reason(const String& path, DWORD systemError) {
    if (systemError != ERROR_BAD_EXE_FORMAT) {
        return u"system error " + runtime::FromAscii(std::to_string(systemError));
    }
    const auto bytes = runtime::win32::Win32Files().Read(path);
    return runtime::BitsOfProgram(bytes.value_or("")) == 64 ? u"a 64-bit file" : u"not a library";
}

Error CannotLoad(const String& path, DWORD systemError) {
    return runtime::ErrorAbout(runtime::kErrorInLoadingDll, path + u" (" + Reason(path, systemError) +
                                                                u"); put the suite's 32-bit QmxKrn2K.dll there");
}

Error NotFound(const String& folder) {
    if (IsAskedForDevelopmentKernel()) {
        return runtime::ErrorAbout(
            runtime::kFileNotFound,
            PathIn(PathIn(folder, kDevelopmentFolder)) +
                u"; put the development kernel there, or unset K4TBACKPROCESS_DEVELOPMENT_KERNEL");
    }
    const String places = folder.empty() ? u"" : folder + u", ";
    return runtime::ErrorAbout(
        runtime::kFileNotFound,
        kFileName + (u" (searched: " + places) +
            u"the program's folder, the system folder); put the suite's QmxKrn2K.dll beside the component");
}

/// Loads the library that FindKernel finds. If the file does not load, tries no other copy, because another copy would
/// hide that this file cannot be loaded.
Library Load(const String& folder) {
    const auto found = FindKernel(folder, FolderOf(ModulePath(nullptr)));
    if (!found) throw NotFound(folder);
    const auto quiet = QuietErrors(SEM_FAILCRITICALERRORS | SEM_NOOPENFILEERRORBOX);
    Library library = runtime::win32::LoadTrusted(found->path);
    if (!library) throw CannotLoad(found->path, GetLastError());
    return library;
}

std::string ToAnsi(StringView text) {
    return runtime::win32::Win32Locale().ToAnsi(text);
}

/// Converts the bytes up to the first NUL.
String FromAnsi(std::string_view bytes) {
    return runtime::win32::Win32Locale().FromAnsi(bytes.substr(0, bytes.find('\0')));
}

}  // namespace

std::optional<FoundKernel> FindKernel(const String& componentFolder, const String& programFolder) {
    const String development = PathIn(PathIn(componentFolder, kDevelopmentFolder));
    const std::vector<FoundKernel> places =
        IsAskedForDevelopmentKernel()
            ? std::vector<FoundKernel>{{development, KernelPlace::kAskedFor}}
            : std::vector<FoundKernel>{{PathIn(componentFolder), KernelPlace::kBesideComponent},
                                       {PathIn(programFolder), KernelPlace::kProgramFolder},
                                       {runtime::win32::InSystemFolder(kFileName), KernelPlace::kSystemFolder},
                                       {development, KernelPlace::kDevelopmentFolder}};
    const auto found = std::ranges::find_if(places, [](const FoundKernel& kernel) { return IsFile(kernel.path); });
    if (found == places.end()) return {};
    return *found;
}

KernelLibrary::KernelLibrary(String folder) : folder_(std::move(folder)) {}

void KernelLibrary::EnsureLoaded() {
    if (!library_) library_ = Load(folder_);
}

String KernelLibrary::Path() {
    EnsureLoaded();
    return ModulePath(library_.Get());
}

std::vector<std::string> KernelLibrary::MissingEntries() {
    EnsureLoaded();
    std::vector<std::string> missing;
    for (const char* name : {"E_SetString", "E_GetString", "DB_DataBase", "O_GetName"}) {
        if (GetProcAddress(library_.Get(), name) == nullptr) missing.emplace_back(name);
    }
    return missing;
}

FARPROC KernelLibrary::Find(const char* name) {
    EnsureLoaded();
    if (const FARPROC address = GetProcAddress(library_.Get(), name)) {
        isBound_ = true;
        return address;
    }
    const Error missing = runtime::ErrorAbout(
        runtime::kDllEntryPointNotFound,
        runtime::FromAscii(name) + u" in " + ModulePath(library_.Get()) + u"; put the suite's QmxKrn2K.dll there");
    // Release the wrong library, so that a user can replace its file.
    if (!isBound_) library_.Reset();
    throw missing;
}

template <typename Function>
Function KernelLibrary::Bound(Function& entry, const char* name) {
    if (!entry) entry = reinterpret_cast<Function>(reinterpret_cast<void*>(Find(name)));
    return entry;
}

void KernelLibrary::E_SetString(StringView key, String& value) {
    const auto call = Bound(setString_, "E_SetString");
    std::string keyBytes = ToAnsi(key);
    std::string buffer = ToAnsi(value) + '\0';  // the kernel may also overwrite the terminator
    call(keyBytes.data(), buffer.data());
    value = FromAnsi(buffer);
}

TextPointer KernelLibrary::E_GetString(StringView key) {
    const auto call = Bound(getString_, "E_GetString");
    std::string keyBytes = ToAnsi(key);
    return call(keyBytes.data());
}

std::int32_t KernelLibrary::DB_DataBase() {
    return Bound(dataBase_, "DB_DataBase")();
}

TextPointer KernelLibrary::O_GetName(std::int32_t handle) {
    return Bound(getName_, "O_GetName")(handle);
}

}  // namespace kernel_api::win32
