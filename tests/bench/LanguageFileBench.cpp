// Compares the time to look up a text among 100,000 texts with GNU gettext. The built-in reader is measured twice: as
// the component calls it, where it notices a changed file at once, and with the loaded texts alone. gettext never
// checks its file again. Prints the ratios.
#include <benchmark/benchmark.h>
#include <libintl.h>
#include <sys/stat.h>

#include <clocale>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <stdexcept>
#include <string>
#include <vector>

#include "kernel_api/builtin/BuiltInReader.h"
#include "kernel_api/builtin/TextFile.h"
#include "runtime/headless/MemorySettings.h"
#include "runtime/headless/PlainLocale.h"

namespace {

namespace fs = std::filesystem;
using runtime::String;
using runtime::StringView;

constexpr int kTexts = 100'000;
constexpr const char* kDomain = "bench";
constexpr const char* kLocale = "C.UTF-8";

/// The root of the folders below. It is deleted when the program ends.
const fs::path& Root() {
    static const struct Made {
        Made() {
            std::string pattern = (fs::temp_directory_path() / "language-bench-XXXXXX").string();
            if (!mkdtemp(pattern.data())) throw std::runtime_error("cannot make a folder");
            path = pattern;
        }
        ~Made() { fs::remove_all(path); }
        fs::path path;
    } root;
    return root.path;
}

/// Files of this machine under the paths that the reader uses: "name" in Root() for any folder.
class DiskFiles : public runtime::FilesPort {
 public:
    String CurrentFolder() override { return {}; }
    void ChangeFolder(StringView) override {}
    String FirstMatch(StringView) override { return {}; }
    std::optional<runtime::FileStamp> Stamp(StringView path) override {
        struct stat status {};
        if (stat(Place(path).c_str(), &status) != 0) return std::nullopt;
        const auto modified = status.st_mtim.tv_sec * 1'000'000'000 + status.st_mtim.tv_nsec;
        return runtime::FileStamp{static_cast<std::uint64_t>(modified), static_cast<std::uint64_t>(status.st_size)};
    }
    std::optional<std::string> Read(StringView path) override {
        std::ifstream file(Place(path), std::ios::binary);
        if (!file) return std::nullopt;
        return std::string(std::istreambuf_iterator<char>(file), {});
    }

 private:
    static std::string Place(StringView path) {
        return Root().native() + "/" + runtime::ToUtf8(path.substr(path.rfind(u'\\') + 1));
    }
};

std::string Identifier(int i) {
    return std::to_string(90'000 + i);
}

std::string Translation(int i) {
    return "Text number " + std::to_string(i) + " of the benchmark";
}

std::string LanguageFile() {
    std::string lines;
    for (int i = 0; i < kTexts; ++i) lines += Identifier(i) + " = " + Translation(i) + "\n";
    return lines;
}

void MakeCatalogue() {
    const fs::path folder = Root() / kLocale / "LC_MESSAGES";
    const fs::path source = Root() / "bench.po";
    fs::create_directories(folder);
    std::ofstream po(source);
    po << "msgid \"\"\nmsgstr \"Content-Type: text/plain; charset=UTF-8\\n\"\n\n";
    for (int i = 0; i < kTexts; ++i) {
        po << "msgid \"" << Identifier(i) << "\"\nmsgstr \"" << Translation(i) << "\"\n\n";
    }
    po.close();
    const std::string command = std::string(MSGFMT) + " -o " + (folder / "bench.mo").string() + " " + source.string();
    if (std::system(command.c_str()) != 0) throw std::runtime_error("msgfmt failed");
    if (!std::setlocale(LC_ALL, kLocale)) throw std::runtime_error("no such locale");
    bindtextdomain(kDomain, Root().c_str());
}

/// All identifiers, in random order, so that caches do not help.
template <typename Text>
std::vector<Text> Shuffled(Text (*make)(int)) {
    std::vector<Text> identifiers;
    for (int i = 0; i < kTexts; ++i) identifiers.push_back(make(static_cast<int>(i * 7919LL % kTexts)));
    return identifiers;
}

String WideIdentifier(int i) {
    return runtime::FromAscii(Identifier(i));
}

/// Looks up one identifier after the other. `lookUp` returns whether it was found.
template <typename Texts, typename LookUp>
void Run(benchmark::State& state, const Texts& identifiers, LookUp&& lookUp) {
    std::size_t next = 0;
    bool areFound = true;
    for (auto _ : state) {
        areFound = lookUp(identifiers[next]) && areFound;
        next = next + 1 == identifiers.size() ? 0 : next + 1;
    }
    if (!areFound) state.SkipWithError("a text was not found");
}

struct Ours {
    Ours() {
        reader.UseLanguageFolder([] { return String(u"\\language"); });
    }
    DiskFiles files;
    runtime::headless::MemorySettings settings;
    runtime::headless::PlainLocale locale;
    kernel_api::builtin::BuiltInReader reader{files, settings, locale};
};

void Reader(benchmark::State& state) {
    Ours ours;
    const auto identifiers = Shuffled(WideIdentifier);
    ours.reader.GetText(u"", u"1");
    Run(state, identifiers, [&](const String& id) { return !ours.reader.GetText({}, id).empty(); });
}

void LoadedTexts(benchmark::State& state) {
    const kernel_api::builtin::TextFile texts(LanguageFile());
    const auto identifiers = Shuffled(WideIdentifier);
    Run(state, identifiers, [&](const String& id) { return texts.Find(id) != nullptr; });
}

void Gettext(benchmark::State& state) {
    const auto identifiers = Shuffled(Identifier);
    Run(state, identifiers, [](const std::string& id) { return dgettext(kDomain, id.c_str()) != id.c_str(); });
}

void Load(benchmark::State& state) {
    const std::string bytes = LanguageFile();
    for (auto _ : state) benchmark::DoNotOptimize(kernel_api::builtin::TextFile(bytes).Count());
}

BENCHMARK(Reader);
BENCHMARK(LoadedTexts);
BENCHMARK(Gettext);
BENCHMARK(Load)->Unit(benchmark::kMillisecond);

/// Prints the usual table, then the ratios.
class RatioReporter : public benchmark::ConsoleReporter {
 public:
    void ReportRuns(const std::vector<Run>& runs) override {
        ConsoleReporter::ReportRuns(runs);
        for (const Run& run : runs) times_[run.run_name.function_name] = run.GetAdjustedCPUTime();
    }

    void Finalize() override {
        for (const char* ours : {"Reader", "LoadedTexts"}) {
            if (times_.contains(ours) && times_.contains("Gettext"))
                std::printf("%s/gettext %.2f\n", ours, times_[ours] / times_["Gettext"]);
        }
    }

 private:
    std::map<std::string, double> times_;
};

}  // namespace

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
    std::ofstream(Root() / "K4TBackProcess.txt", std::ios::binary) << LanguageFile();
    MakeCatalogue();
    RatioReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    benchmark::Shutdown();
}
