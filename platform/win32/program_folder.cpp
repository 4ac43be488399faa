#include "platform/program_folder.h"

#include "platform/win32/wide_text.h"

#include <windows.h>

namespace tarveth::platform {

namespace {

// The path of the running executable, however long it is.
std::wstring Executable() {
    std::wstring path(MAX_PATH, L'\0');
    for (;;) {
        const DWORD length = GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size()));
        if (length < path.size()) {
            path.resize(length);
            return path;
        }
        path.resize(path.size() * 2);
    }
}

} // namespace

char PathSeparator() {
    return '\\';
}

std::string ProgramFolder() {
    const std::wstring executable = Executable();
    return WithSeparator(TextFromWide(executable.substr(0, executable.find_last_of(L'\\'))));
}

std::string UserDataFolder() {
    std::wstring data(GetEnvironmentVariableW(L"APPDATA", nullptr, 0), L'\0');
    data.resize(GetEnvironmentVariableW(L"APPDATA", data.data(), static_cast<DWORD>(data.size())));
    return data.empty() ? std::string() : WithSeparator(TextFromWide(data)) + "Tarveth\\";
}

// Only trying tells: a folder's attributes say nothing of who may write in it.
bool CanCreateFileIn(const std::string& folder) {
    const std::string probe =
        WithSeparator(folder) + ".tarveth-probe-" + std::to_string(GetCurrentProcessId());
    const HANDLE file = CreateFileW(WideFromText(probe).c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW,
                                    FILE_FLAG_DELETE_ON_CLOSE, nullptr);
    if (file == INVALID_HANDLE_VALUE)
        return false;
    CloseHandle(file);
    return true;
}

bool MayKeepFilesIn(const std::string& programFolder) {
    return CanCreateFileIn(programFolder);
}

} // namespace tarveth::platform
