// Compares the time to look up a text with the time of GNU gettext. The built-in reader is measured twice: as the
// component calls it, and with loaded texts only. Once per operation, the reader checks whether the file has changed.
// gettext never checks this.
#include <libintl.h>
#include <sys/stat.h>

#include <clocale>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>
#include <vector>

#include "kernel_api/builtin/BuiltInReader.h"
#include "kernel_api/builtin/TextFile.h"
#include "runtime/Operation.h"
#include "runtime/headless/MemorySettings.h"
#include "runtime/headless/PlainLocale.h"
#include "tests/bench/Row.h"

namespace {

namespace fs = std::filesystem;
using runtime::String;
using runtime::StringView;

/// The number of texts that one operation looks up. A large form has this number of texts.
constexpr int kTextsOfAForm = 50;
constexpr const char* kLocale = "C.UTF-8";

/// Returns the folder that contains all files of this program. The folder is deleted at the program's end.
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

/// Reads real files. For each path, this class opens the file with the same name in Root().
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

std::string LanguageFile(int texts) {
    std::string lines;
    for (int i = 0; i < texts; ++i) lines += Identifier(i) + " = " + Translation(i) + "\n";
    return lines;
}

/// Makes a gettext catalogue with `texts` texts and returns its domain. Each number of texts has its own domain,
/// because gettext reads the catalogue of a domain only once.
std::string MakeCatalogue(int texts) {
    const std::string domain = "bench" + std::to_string(texts);
    const fs::path folder = Root() / kLocale / "LC_MESSAGES";
    const fs::path source = Root() / "bench.po";
    fs::create_directories(folder);
    std::ofstream po(source);
    po << "msgid \"\"\nmsgstr \"Content-Type: text/plain; charset=UTF-8\\n\"\n\n";
    for (int i = 0; i < texts; ++i) {
        po << "msgid \"" << Identifier(i) << "\"\nmsgstr \"" << Translation(i) << "\"\n\n";
    }
    po.close();
    const std::string command =
        std::string(MSGFMT) + " -o " + (folder / (domain + ".mo")).string() + " " + source.string();
    if (std::system(command.c_str()) != 0) throw std::runtime_error("msgfmt failed");
    if (!std::setlocale(LC_ALL, kLocale)) throw std::runtime_error("no such locale");
    bindtextdomain(domain.c_str(), Root().c_str());
    return domain;
}

/// Returns 10,000 identifiers in a scattered order. They are chosen from `texts` different identifiers.
template <typename Text>
std::vector<Text> Shuffled(Text (*make)(int), int texts) {
    constexpr int kIdentifiers = 10'000;
    std::vector<Text> identifiers;
    for (int i = 0; i < kIdentifiers; ++i) identifiers.push_back(make(static_cast<int>(i * 7919LL % texts)));
    return identifiers;
}

String WideIdentifier(int i) {
    return runtime::FromAscii(Identifier(i));
}

/// Returns the microseconds per identifier. `find` returns whether it has found the identifier.
template <typename Texts, typename Find>
double TimeOfEach(const Texts& identifiers, Find&& find) {
    bool areFound = true;
    const double time = tests::TimeOf([&] {
        for (const auto& id : identifiers) areFound = find(id) && areFound;
    });
    tests::Require(areFound, "a text was not found");
    return time / static_cast<double>(identifiers.size());
}

void Compare(int texts) {
    const std::string bytes = LanguageFile(texts);
    std::ofstream(Root() / "K4TBackProcess.txt", std::ios::binary) << bytes;
    DiskFiles files;
    runtime::headless::MemorySettings settings;
    runtime::headless::PlainLocale locale;
    kernel_api::builtin::BuiltInReader reader{files, settings, locale};
    reader.UseLanguageFolder([] { return String(u"\\language"); });
    const kernel_api::builtin::TextFile loaded(bytes);
    const std::string domain = MakeCatalogue(texts);
    const auto wide = Shuffled(WideIdentifier, texts);
    const auto narrow = Shuffled(Identifier, texts);

    const auto peer = [&] {
        return TimeOfEach(narrow, [&](const auto& id) { return dgettext(domain.c_str(), id.c_str()) != id.c_str(); });
    };
    const auto inOperations = [&] {
        std::optional<runtime::Operation> operation;
        int asked = 0;
        return TimeOfEach(wide, [&](const auto& id) {
            if (asked++ % kTextsOfAForm == 0) {
                operation.reset();
                operation.emplace();
            }
            return !reader.GetText({}, id).empty();
        });
    };
    const std::string among = " of " + std::to_string(texts);
    tests::Measure({"text by identifier, reader," + among, "gettext", 1.0, 5}, inOperations, peer);
    tests::Measure(
        {"text by identifier, loaded texts," + among, "gettext", 0.6, 5},
        [&] { return TimeOfEach(wide, [&](const auto& id) { return loaded.Find(id).has_value(); }); }, peer);
}

}  // namespace

int main() {
    for (const int texts : {10, 100, 1'000, 10'000, 100'000}) Compare(texts);
}
