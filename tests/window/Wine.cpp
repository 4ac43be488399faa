#include "tests/window/Wine.h"

#include "tests/window/Process.h"

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

} // namespace

Wine::Wine() {
    if (!Runs({WINE, "wineboot", "--init"})) {
        throw std::runtime_error("Wine does not come up");
    }
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
