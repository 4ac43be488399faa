#include "tests/window/Wine.h"

#include "tests/window/Process.h"

#include <filesystem>
#include <stdexcept>
#include <system_error>
#include <utility>
#include <vector>

namespace tarveth::harness {

namespace {

// False when it does not come to its end.
bool Runs(std::vector<std::string> command) {
    Process process({.command = std::move(command),
                     .environment = WineEnvironment(),
                     .output = std::string(WINE_PREFIX) + ".log"});
    return process.WaitForExit(kWinePatience).has_value();
}

// Wine links the user's folders to the home it first sees, which goes with that test's desktop; file dialogs
// need them.
void MakeUserFolders() {
    std::vector<std::filesystem::path> links;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(
             std::filesystem::path(WINE_PREFIX) / "drive_c" / "users")) {
        if (entry.is_symlink()) {
            links.push_back(entry.path());
        }
    }
    for (const std::filesystem::path& link : links) {
        std::filesystem::remove(link);
        std::filesystem::create_directory(link);
    }
}

} // namespace

Wine::Wine() {
    if (!Runs({WINE, "wineboot", "--init"})) {
        throw std::runtime_error("Wine does not come up");
    }
    MakeUserFolders();
}

Wine::~Wine() {
    try {
        Runs({"wineserver", "-k"});
        Runs({"wineserver", "-w"});
    } catch (const std::system_error&) { // no process can be made, and none is left to end
    }
}

std::map<std::string, std::string> WineEnvironment() {
    return {{"WINEPREFIX", WINE_PREFIX},
            {"WINEDEBUG", "-all"},
            {"WINEDLLOVERRIDES", "mscoree,mshtml="},
            {"LC_ALL", "C.UTF-8"}};
}

} // namespace tarveth::harness
