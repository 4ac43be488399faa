#include "platform/command_line.h"

#include "platform/win32/wide_text.h"

#include <cstdio>

#include <windows.h>

#include <shellapi.h>

namespace tarveth::platform {

// main() gets its arguments in the code page, and with them question marks for all other letters.
std::vector<std::string> CommandLine(int, char**) {
    int count = 0;
    wchar_t** const arguments = CommandLineToArgvW(GetCommandLineW(), &count);
    std::vector<std::string> texts;
    for (int i = 0; arguments != nullptr && i < count; ++i)
        texts.push_back(TextFromWide(arguments[i]));
    LocalFree(arguments);
    return texts;
}

// A program with windows has no console of its own. One whose output goes into a file or a pipe needs none.
void WriteToConsole() {
    if (GetFileType(GetStdHandle(STD_OUTPUT_HANDLE)) != FILE_TYPE_UNKNOWN ||
        AttachConsole(ATTACH_PARENT_PROCESS) == FALSE)
        return;
    std::freopen("CONOUT$", "w", stdout);
    std::freopen("CONOUT$", "w", stderr);
}

} // namespace tarveth::platform
