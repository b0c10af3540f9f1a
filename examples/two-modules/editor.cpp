// Implements EDITOR, a module that works with LIBRARY. EDITOR does not reply to commands. Module prints the commands
// and passes them to the component. build.cmd compiles this file.
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
