// Contains the entry point of the command-line tool.
#include "runtime/win32/WindowsHeaders.h"

#include <fcntl.h>
#include <io.h>
#include <shellapi.h>

#include <cstddef>
#include <cstdio>
#include <iostream>
#include <memory>
#include <new>

#include "runtime/ScopeGuard.h"
#include "tools/Tool.h"
#include "tools/Verbs.h"

namespace {

struct LocalFreer {
    void operator()(wchar_t** memory) const { LocalFree(memory); }
};

tools::Arguments ProcessArguments() {
    int count = 0;
    const std::unique_ptr<wchar_t*[], LocalFreer> texts(CommandLineToArgvW(GetCommandLineW(), &count));
    if (!texts) throw std::bad_alloc();
    tools::Arguments arguments;
    for (int i = 1; i < count; ++i) arguments.push_back(runtime::win32::ToString(texts[static_cast<std::size_t>(i)]));
    return arguments;
}

}  // namespace

int main() try {
    for (std::FILE* stream : {stdin, stdout, stderr}) _setmode(_fileno(stream), _O_BINARY);
    // The tool writes UTF-8. The guard restores the console's code page.
    const runtime::ScopeGuard restored([former = GetConsoleOutputCP()] { SetConsoleOutputCP(former); });
    SetConsoleOutputCP(CP_UTF8);
    tools::Console console{std::cin, std::cout, std::cerr};
    return tools::RunTool(tools::AllVerbs(), K4T_VERSION, ProcessArguments(), console);
} catch (const std::bad_alloc&) {
    std::cerr << "backproc: out of memory; end other programs and try again\n";
    // The verb may be unknown at this point. No verb uses this code as an answer.
    return tools::kDialogFailure;
}
