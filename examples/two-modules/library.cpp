// LIBRARY, a module that opens parts for others: to OPEN,PART it answers with OPENED,PART. build.cmd compiles it.
// Another name can be given on its command line. Run a copy of the program then: the component has its form in one
// process of a program file only.
#include "module.h"

namespace {

class Library final : public Module {
 public:
    using Module::Module;

 private:
    void OnCommand(const std::wstring& from, const std::wstring& command) override {
        const std::wstring verb = L"OPEN,";
        if (command.compare(0, verb.size(), verb) == 0) Deliver(from, L"OPENED," + command.substr(verb.size()));
    }
};

}  // namespace

int main(int argc, char** argv) {
    const std::string name = argc > 1 ? argv[1] : "LIBRARY";
    return Library(std::wstring(name.begin(), name.end())).Run();
}
