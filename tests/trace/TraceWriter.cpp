// Appends numbered lines to a trace. Several such processes write to the same file.
//     trace_writer FILE LINES
#include <cstdlib>
#include <string>

#include "runtime/win32/WindowsHeaders.h"

#include <shellapi.h>

#include "trace/win32/TraceFile.h"

int main() {
    int count = 0;
    wchar_t** const arguments = CommandLineToArgvW(GetCommandLineW(), &count);
    if (count != 3) return EXIT_FAILURE;
    const auto file = trace::win32::TraceFile::Open(runtime::win32::ToString(arguments[1]));
    if (!file) return EXIT_FAILURE;
    const int lines = static_cast<int>(std::wcstol(arguments[2], nullptr, 10));
    // The lines have different lengths, because the test then detects mixed lines.
    for (int i = 1; i <= lines; ++i) {
        file->Write("line=[" + std::to_string(i) + "] text=[" + std::string(static_cast<std::size_t>(i) % 300, 'x') +
                    "]");
    }
    return EXIT_SUCCESS;
}
