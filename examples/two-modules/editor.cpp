// Implements EDITOR, a module that works with LIBRARY. EDITOR only prints the commands that arrive. build.cmd compiles
// this file.
#include "module.h"

namespace {

class Editor final : public Module {
 public:
    Editor() : Module(L"EDITOR") {}

 private:
    void OnCommand(const std::wstring&, const std::wstring&) override {}
};

}  // namespace

int main() {
    return Editor().Run();
}
