// The tests run this program as a second process that uses the development kernel. The program reads one command per
// line and replies to each command with one line. Tabs separate a command's fields.
//     kernel_peer FOLDER    FOLDER holds QmxKrn2K.dll
#include <algorithm>
#include <cstdlib>
#include <functional>
#include <iostream>
#include <map>
#include <memory>
#include <optional>
#include <sstream>
#include <string>
#include <vector>

#include "devkernel/SectionMemory.h"
#include "tests/kernel/LoadedKernel.h"

namespace tests::kernel {
namespace {

using namespace devkernel;
using Fields = std::vector<std::string>;

Fields Split(const std::string& line) {
    Fields fields;
    std::istringstream stream(line);
    for (std::string field; std::getline(stream, field, '\t');) fields.push_back(field);
    fields.resize(4);
    return fields;
}

/// Returns "3 a" for "aaa", and "mixed" for a text with different letters.
std::string Summary(const std::string& text) {
    if (text.find_first_not_of(text.substr(0, 1)) != std::string::npos) return "mixed";
    return std::to_string(text.size()) + " " + text.substr(0, 1);
}

class PeerProcess {
 public:
    explicit PeerProcess(const std::string& folder)
        : kernel_(std::make_unique<LoadedKernel>(runtime::FromUtf8(folder + "\\QmxKrn2K.dll"))) {}

    std::string Answer(const Fields& fields) {
        static const std::map<std::string, std::string (PeerProcess::*)(const Fields&)> kCommands = {
            {"set", &PeerProcess::Set},       {"get", &PeerProcess::Get},         {"fill", &PeerProcess::Fill},
            {"summary", &PeerProcess::Sum},   {"write", &PeerProcess::WriteOver}, {"watch", &PeerProcess::Watch},
            {"follow", &PeerProcess::Follow}, {"many", &PeerProcess::SetMany},    {"check", &PeerProcess::CheckMany},
            {"list", &PeerProcess::List},     {"lock", &PeerProcess::LockOnly},   {"half", &PeerProcess::WriteHalf},
            {"die", &PeerProcess::Die},       {"unload", &PeerProcess::Unload},
        };
        const auto command = kCommands.find(fields[0]);
        return command == kCommands.end() ? "unknown command" : (this->*command->second)(fields);
    }

 private:
    std::optional<std::string> Text(const std::string& key) const {
        const long address = kernel_->E_GetString(key.c_str());
        if (address == 0) return std::nullopt;
        return reinterpret_cast<const char*>(address);
    }
    bool Store(const std::string& key, const std::string& value) const {
        return kernel_->E_SetString(key.c_str(), value.c_str()) != 0;
    }

    std::string Set(const Fields& fields) { return Store(fields[1], fields[2]) ? "stored" : "refused"; }

    std::string Get(const Fields& fields) {
        const auto text = Text(fields[1]);
        return text ? "=" + *text : "none";
    }

    // fill KEY LENGTH LETTER: stores a text that consists of LENGTH times LETTER
    std::string Fill(const Fields& fields) {
        return Store(fields[1], std::string(std::stoul(fields[2]), fields[3].at(0))) ? "stored" : "refused";
    }

    std::string Sum(const Fields& fields) {
        const auto text = Text(fields[1]);
        return text ? Summary(*text) : "none";
    }

    // write KEY ROUNDS SEED: stores random texts. Each text repeats one letter. The text's length determines the
    // letter.
    std::string WriteOver(const Fields& fields) {
        auto length = static_cast<unsigned>(std::stoul(fields[3]));
        for (unsigned long round = std::stoul(fields[2]); round > 0; --round) {
            length = (length * 1103 + 12345) % 20011;
            if (!Store(fields[1], std::string(length, LetterOf(length)))) return "refused";
        }
        return "done";
    }

    // watch KEY ROUNDS: reads the text ROUNDS times; returns how many texts were torn
    std::string Watch(const Fields& fields) {
        int torn = 0;
        for (unsigned long round = std::stoul(fields[2]); round > 0; --round) torn += IsTorn(Text(fields[1])) ? 1 : 0;
        return std::to_string(torn);
    }

    // follow KEY CHANGES: reads until the text has changed CHANGES times; returns how many texts were torn
    std::string Follow(const Fields& fields) {
        const ULONGLONG end = GetTickCount64() + 60'000;
        std::optional<std::string> last = Text(fields[1]);
        int torn = 0;
        for (unsigned long changes = std::stoul(fields[2]); changes > 0;) {
            if (GetTickCount64() > end) return "no change";
            std::optional<std::string> text = Text(fields[1]);
            torn += IsTorn(text) ? 1 : 0;
            changes -= text != last ? 1 : 0;
            last = std::move(text);
        }
        return std::to_string(torn);
    }

    static bool IsTorn(const std::optional<std::string>& text) {
        if (!text) return true;
        return !std::all_of(text->begin(), text->end(), [&](char c) { return c == LetterOf(text->size()); });
    }
    static char LetterOf(std::size_t length) { return static_cast<char>('a' + length % 26); }

    // many PREFIX COUNT: stores COUNT strings whose keys begin with PREFIX
    std::string SetMany(const Fields& fields) {
        for (int i = 0; i < std::stoi(fields[2]); ++i) {
            if (!Store(fields[1] + std::to_string(i), "value of " + std::to_string(i))) return "refused";
        }
        return "stored";
    }
    std::string CheckMany(const Fields& fields) {
        int right = 0;
        for (int i = 0; i < std::stoi(fields[2]); ++i) {
            right += Text(fields[1] + std::to_string(i)) == "value of " + std::to_string(i) ? 1 : 0;
        }
        return std::to_string(right);
    }

    // list: returns the number of keys and "sorted" or "unsorted"
    std::string List(const Fields&) {
        std::vector<std::string> keys;
        std::string key(100, '\0');
        const auto size = static_cast<long>(key.size());
        for (long needed = kernel_->QmxDev_NextString(nullptr, key.data(), size); needed > 0;
             needed = kernel_->QmxDev_NextString(keys.back().c_str(), key.data(), size)) {
            keys.push_back(key.c_str());
        }
        return std::to_string(keys.size()) + (std::is_sorted(keys.begin(), keys.end()) ? " sorted" : " unsorted");
    }

    std::string LockOnly(const Fields&) {
        memory_ = std::make_unique<SectionMemory>(DevelopmentStoreName(), kDevelopmentStoreCapacity);
        memory_->Lock();
        return "locked";
    }

    // Begins to add a record and does not finish it, as if the process were killed.
    std::string WriteHalf(const Fields& fields) {
        LockOnly(fields);
        const std::uint32_t space = memory_->Load(Word::kGeneration) % 2;
        const std::uint32_t used = memory_->Load(space == 0 ? Word::kUsed0 : Word::kUsed1);
        const std::uint32_t head[2] = {3, 1000};
        if (!memory_->View(space, used + 100)) return "no memory";
        memory_->Write(space, used, head, sizeof head);
        memory_->Write(space, used + sizeof head, "key", 3);
        return "written";
    }

    std::string Die(const Fields&) {
        TerminateProcess(GetCurrentProcess(), 1);
        return "still alive";
    }

    std::string Unload(const Fields&) {
        kernel_.reset();
        return GetModuleHandleW(L"QmxKrn2K.dll") ? "still loaded" : "unloaded";
    }

    std::unique_ptr<LoadedKernel> kernel_;
    std::unique_ptr<SectionMemory> memory_;
};

}  // namespace
}  // namespace tests::kernel

int main(int argc, char** argv) {
    using namespace tests::kernel;
    if (argc != 2) return EXIT_FAILURE;
    try {
        PeerProcess process(argv[1]);
        for (std::string line; std::getline(std::cin, line);) std::cout << process.Answer(Split(line)) << std::endl;
    } catch (const std::exception& error) {
        std::cout << "failed: " << error.what() << std::endl;
        return EXIT_FAILURE;
    }
    return EXIT_SUCCESS;
}
