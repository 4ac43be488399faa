#include "platform/program_folder.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <iterator>
#include <system_error>

#include <fcntl.h>
#include <unistd.h>

namespace tarveth::platform {

namespace {

// Programs that were installed for everybody are below one of them.
constexpr const char* kSystemFolders[] = {"/usr/", "/opt/", "/bin/",  "/sbin/",
                                          "/lib/", "/app/", "/snap/", "/nix/"};

} // namespace

char PathSeparator() {
    return '/';
}

std::string ProgramFolder() {
    std::error_code error;
    const auto executable = std::filesystem::read_symlink("/proc/self/exe", error);
    return WithSeparator(error ? "." : executable.parent_path().string());
}

// A relative folder in the environment is to be ignored.
std::string UserDataFolder() {
    const char* data = std::getenv("XDG_DATA_HOME");
    if (data != nullptr && data[0] == '/')
        return WithSeparator(data) + "tarveth/";
    const char* home = std::getenv("HOME");
    if (home != nullptr && home[0] == '/')
        return WithSeparator(home) + ".local/share/tarveth/";
    return {};
}

// Only trying tells: permission bits say nothing of a read-only disk.
bool CanCreateFileIn(const std::string& folder) {
    const std::string probe = WithSeparator(folder) + ".tarveth-probe-" + std::to_string(getpid());
    const int file = open(probe.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0600);
    if (file < 0)
        return false;
    close(file);
    unlink(probe.c_str());
    return true;
}

bool MayKeepFilesIn(const std::string& programFolder) {
    const auto holds = [&](const char* folder) { return WithSeparator(programFolder).starts_with(folder); };
    const bool isInstalled = std::any_of(std::begin(kSystemFolders), std::end(kSystemFolders), holds);
    return !(isInstalled && geteuid() == 0) && CanCreateFileIn(programFolder);
}

} // namespace tarveth::platform
