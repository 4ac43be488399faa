#include "platform/command_line.h"

#include "platform/win32/wide_text.h"

#include <cstdio>

#include <windows.h>

#include <shellapi.h>

namespace tarveth::platform {

// The arguments of main() are in the code page, with question marks for all letters that it lacks, so the
// wide command line is read.
std::vector<std::string> CommandLine(int, char**) {
    int count = 0;
    wchar_t** const arguments = CommandLineToArgvW(GetCommandLineW(), &count);
    std::vector<std::string> texts;
    for (int i = 0; arguments != nullptr && i < count; ++i)
        texts.push_back(TextFromWide(arguments[i]));
    LocalFree(arguments);
    return texts;
}

// A GUI program has no console, so it attaches to its parent's, unless its output is redirected to a file or
// a pipe.
void WriteToConsole() {
    if (GetFileType(GetStdHandle(STD_OUTPUT_HANDLE)) != FILE_TYPE_UNKNOWN ||
        AttachConsole(ATTACH_PARENT_PROCESS) == FALSE)
        return;
    std::freopen("CONOUT$", "w", stdout);
    std::freopen("CONOUT$", "w", stderr);
}

} // namespace tarveth::platform
