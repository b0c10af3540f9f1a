// Implements LIBRARY, a module that replies to OPEN,PART with OPENED,PART. build.cmd compiles this file. An argument
// gives the module another name. To run the program twice, copy its file first, because only one process of a program
// file can load the component's form.
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
