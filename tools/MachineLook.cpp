#include "tools/MachineLook.h"

#include <set>

#include "host/TextCatalogue.h"
#include "kernel_api/builtin/BuiltInReader.h"
#include "kernel_api/builtin/IniText.h"
#include "runtime/Error.h"
#include "runtime/win32/GrowingBuffer.h"
#include "runtime/win32/Handle.h"
#include "runtime/win32/ModulePath.h"
#include "runtime/win32/Win32Files.h"
#include "runtime/win32/Win32Locale.h"
#include "services/ProcessValues.h"
#include "tools/ClientView.h"
#include "tools/ComponentLook.h"
#include "tools/Display.h"
#include "tools/TextReport.h"

namespace tools {

namespace {

using kernel_api::win32::FoundKernel;
using kernel_api::win32::KernelLibrary;
using kernel_api::win32::KernelPlace;
using runtime::win32::FolderOf;
using runtime::win32::KernelHandle;
using runtime::win32::Library;
using runtime::win32::Wide;
using runtime::win32::Win32Files;
using runtime::win32::Win32Locale;

std::string WindowsVersion() {
    using GetVersion = LONG WINAPI(OSVERSIONINFOW*);
    OSVERSIONINFOW version{};
    version.dwOSVersionInfoSize = sizeof version;
    const FARPROC entry = GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "RtlGetVersion");
    if (entry == nullptr || (*reinterpret_cast<GetVersion*>(reinterpret_cast<void*>(entry)))(&version) != 0) {
        return "Windows";
    }
    return "Windows " + std::to_string(version.dwMajorVersion) + "." + std::to_string(version.dwMinorVersion) + "." +
           std::to_string(version.dwBuildNumber);
}

bool IsElevated() {
    HANDLE opened = nullptr;
    if (!OpenProcessToken(GetCurrentProcess(), TOKEN_QUERY, &opened)) return false;
    const KernelHandle token(opened);
    TOKEN_ELEVATION elevation{};
    DWORD length = 0;
    return GetTokenInformation(token.Get(), TokenElevation, &elevation, sizeof elevation, &length) &&
           elevation.TokenIsElevated != 0;
}

ThisSystem LookAtSystem() {
    BOOL isOn64BitWindows = FALSE;
    IsWow64Process(GetCurrentProcess(), &isOn64BitWindows);
    return {.windows = WindowsVersion(), .bits = isOn64BitWindows ? 64 : 32, .isElevated = IsElevated()};
}

ThisTool LookAtTool(Win32Files& files, const String& componentFolder) {
    const String folder = ToolFolder();
    return {.folder = folder,
            .fullVersion = K4T_VERSION,
            .hasComponent = files.Stamp(folder + u"\\K4TBackProcess.dll").has_value(),
            .isBesideComponent = IsSamePath(folder, componentFolder)};
}

KernelOrigin OriginOf(KernelPlace place) {
    switch (place) {
        case KernelPlace::kAskedFor:
            return KernelOrigin::kAskedFor;
        case KernelPlace::kSystemFolder:
            return KernelOrigin::kSystemFolder;
        case KernelPlace::kDevelopmentFolder:
            return KernelOrigin::kDevelopmentFolder;
        case KernelPlace::kBesideComponent:
        case KernelPlace::kProgramFolder:
            break;
    }
    return KernelOrigin::kBesideComponent;
}

/// True if the kernel at `path` exports a function that lists the kernel's strings. Only the development kernel exports
/// this function. The kernel must be loaded.
bool IsDevelopmentKernel(const String& path) {
    return GetProcAddress(GetModuleHandleW(Wide(path)), "QmxDev_NextString") != nullptr;
}

/// Returns the path of the kernel in the system folder. Returns "" if there is no kernel in the system folder, or if
/// `path` is that kernel.
String HiddenKernel(const String& path) {
    const auto inSystem = kernel_api::win32::FindKernel(u"", u"");
    if (!inSystem || inSystem->place != KernelPlace::kSystemFolder || IsSamePath(inSystem->path, path)) return {};
    return inSystem->path;
}

KernelFile LookAtKernel(KernelLibrary& kernel, const FoundKernel& found) try {
    KernelFile file{.path = kernel.Path(), .failure = {}, .missing = kernel.MissingEntries()};
    file.origin = OriginOf(found.place);
    file.isDevelopment = IsDevelopmentKernel(file.path);
    if (found.place == KernelPlace::kBesideComponent) file.hidden = HiddenKernel(file.path);
    return file;
} catch (const runtime::Error& error) {
    return {.path = {}, .failure = Display(error.Description()), .missing = {}};
}

KernelFile LookForKernel(const String& componentFolder) try {
    KernelLibrary(componentFolder).Path();
    return {.path = {}, .failure = "no kernel library", .missing = {}};
} catch (const runtime::Error& error) {
    return {.path = {}, .failure = Display(error.Description()), .missing = {}};
}

std::string EncodingOf(std::string_view bytes) {
    if (bytes.starts_with("\xFF\xFE") || bytes.starts_with("\xFE\xFF")) return "UTF-16";
    return runtime::FromStrictUtf8(bytes) ? "UTF-8" : "ANSI";
}

IniFile LookAtIni(Win32Files& files, const String& folder) {
    IniFile ini{.path = folder + u"\\sys\\" + String(kernel_api::kIniFileName)};
    const DWORD attributes = GetFileAttributesW(Wide(ini.path));
    ini.exists = attributes != INVALID_FILE_ATTRIBUTES;
    ini.isFolder = ini.exists && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
    if (!ini.exists || ini.isFolder) return ini;
    const std::optional<std::string> bytes = files.Read(ini.path);
    ini.canBeRead = bytes.has_value();
    if (!bytes) return ini;
    Win32Locale locale;
    const String text = kernel_api::builtin::DecodeIni(*bytes, locale);
    ini.problem = kernel_api::builtin::IniProblem(*bytes);
    if (ini.problem.empty() && text.find(u'\0') != String::npos)
        ini.problem = "it contains NUL characters, so it is not plain text";
    ini.encoding = EncodingOf(*bytes);
    ini.report = ReportOnIni(text, locale);
    return ini;
}

String StringOf(KernelLibrary& kernel, runtime::StringView key) {
    // Some kernels return small numbers instead of an address. No text has an address below kLowestAddress.
    constexpr kernel_api::TextPointer kLowestAddress = 0x10000;
    const kernel_api::TextPointer text = kernel.E_GetString(key);
    return text >= kLowestAddress ? Win32Locale().FromAnsi(reinterpret_cast<const char*>(text)) : String();
}

/// Inspects the language folder that the shared string LANGUAGEPATH names. Reads the folder's text file by a client's
/// rules.
LanguageFolder LookAtLanguage(Win32Files& files, KernelLibrary& kernel) {
    LanguageFolder language;
    language.folder = StringOf(kernel, kernel_api::kLanguageFolderKey);
    if (language.folder.empty()) return language;
    const auto bytes = files.Read(kernel_api::builtin::TextsPathIn(language.folder));
    language.hasFile = bytes && bytes->size() <= kernel_api::builtin::kMaxTextsBytes;
    if (!language.hasFile) return language;
    language.isUtf16 = IsUtf16(*bytes);
    const kernel_api::builtin::TextFile texts(*bytes);
    language.skipped = texts.SkippedLines();
    std::set<String> lacking;
    for (const host::CatalogueText& wanted : host::TextCatalogue()) {
        if (!texts.Find(wanted.id)) lacking.insert(runtime::Trim(wanted.id));
    }
    language.lacking = lacking.size();
    return language;
}

String ProgramOf(DWORD process) {
    const KernelHandle opened(OpenProcess(PROCESS_QUERY_LIMITED_INFORMATION, FALSE, process));
    if (!opened) return {};
    return runtime::win32::FillGrowing([&](wchar_t* buffer, DWORD capacity) {
        DWORD length = capacity;
        if (QueryFullProcessImageNameW(opened.Get(), 0, buffer, &length)) return length;
        return GetLastError() == ERROR_INSUFFICIENT_BUFFER ? capacity : 0;
    });
}

MainFormOfProcess LookAtMainForm(HWND window) {
    Win32Locale locale;
    DWORD process = 0;
    GetWindowThreadProcessId(window, &process);
    const String caption = runtime::win32::FillGrowing([&](wchar_t* buffer, DWORD capacity) {
        const auto length = static_cast<DWORD>(GetWindowTextW(window, buffer, static_cast<int>(capacity)));
        return length + 1 < capacity ? length : capacity;
    });
    return {.caption = locale.FromAnsi(locale.ToAnsi(caption)), .process = process, .program = ProgramOf(process)};
}

std::vector<MainFormOfProcess> MainFormsOfSession() {
    constexpr const wchar_t* kFormClass = L"K4TBackProcess.Form";
    std::vector<MainFormOfProcess> forms;
    HWND window = nullptr;
    while ((window = FindWindowExW(nullptr, window, kFormClass, nullptr)) != nullptr) {
        // The main form is never visible. A visible form is a dialog.
        if (!IsWindowVisible(window)) forms.push_back(LookAtMainForm(window));
    }
    return forms;
}

SuiteStrings LookAtStrings(KernelLibrary& kernel) {
    return {.modules = CheckModuleList(StringOf(kernel, u"AllAps")),
            .stateRecord = StringOf(kernel, services::kOwnModuleName),
            .mainForms = MainFormsOfSession()};
}

void LookAtKernelAndStrings(MachineState& machine, Win32Files& files, const String& folder) {
    const std::optional<FoundKernel> found = KernelOfClients(folder);
    if (!found) {
        machine.kernel.besideTool = KernelBesideToolAlone(folder);
        if (machine.kernel.besideTool.empty())
            machine.kernel = LookForKernel(folder);
        else
            machine.kernel.failure = "found only in this tool's folder";
        return;
    }
    const auto kernel = MakeKernelOfClients(folder);
    machine.kernel = LookAtKernel(*kernel, *found);
    if (!HasKernel(machine.kernel)) return;
    machine.strings = LookAtStrings(*kernel);
    machine.language = LookAtLanguage(files, *kernel);
}

/// Returns the path without a quote at its beginning. A registered path may begin with a quote. The diagnosis reports
/// such a quote.
String WithoutQuote(const String& path) {
    return path.starts_with(u'"') ? path.substr(1) : path;
}

}  // namespace

MachineState LookAtMachine() {
    Win32Files files;
    MachineState machine;
    machine.system = LookAtSystem();
    machine.forUser = RegisteredClass(Scope::kUser);
    machine.forMachine = RegisteredClass(Scope::kMachine);
    machine.name = RegisteredName();
    machine.hasManifest = files.Stamp(ToolFolder() + u"\\K4TBackProcess.manifest").has_value();
    machine.component = LookAtComponent(files, FindComponent().library);
    if (const ClassEntry* entry = EntryInForce(machine)) machine.activationFailure = ActivationFailure(entry->library);
    const String folder = FolderOf(WithoutQuote(machine.component.path));
    machine.tool = LookAtTool(files, folder);
    LookAtKernelAndStrings(machine, files, folder);
    machine.ini = LookAtIni(files, folder);
    return machine;
}

}  // namespace tools
