// The entry point of the game.
#include "app/Program.h"
#include "platform/command_line.h"
#include "platform/fonts.h"
#include "platform/text_path.h"
#include "version.h"

#include <algorithm>
#include <filesystem>
#include <iostream>
#include <memory>
#include <optional>
#include <string>
#include <system_error>
#include <utility>
#include <vector>

#include <wx/app.h>
#include <wx/log.h>

namespace tarveth {

namespace {

constexpr char kUsage[] =
    "Usage: tarveth [FILE.TSG | --last | --version | --help]\n"
    "Starts the game, or goes on with the saved game FILE.TSG, or with --last the one that was\n"
    "opened or saved last. Settings, logs and saved games are kept beside the program, or in your\n"
    "own data folder where the program's folder cannot be written.\n";

constexpr char kLast[] = "--last";

// Handles a command line that asks for something else than the game. Gives the exit status, or nothing if the
// game is to start.
std::optional<int> Answer(const std::vector<std::string>& arguments) {
    if (arguments.size() < 2)
        return std::nullopt;
    const std::string& argument = arguments[1];
    // The desktop passes the name of a file that the user double-clicks.
    if (arguments.size() == 2 && !argument.starts_with('-') && !argument.empty())
        return std::nullopt;
    if (arguments.size() == 2 && argument == kLast)
        return std::nullopt;
    platform::WriteToConsole();
    if (argument == "--version") {
        std::cout << "Tarveth " << kVersion << '\n';
        return 0;
    }
    if (argument == "--help") {
        std::cout << kUsage;
        return 0;
    }
    std::cerr << "tarveth: " << (arguments.size() == 2 ? argument : arguments[2]) << " is not understood.\n"
              << kUsage;
    return 2;
}

// Makes a path absolute, since the program changes its working folder.
std::string Absolute(const std::string& name) {
    std::error_code error;
    const std::filesystem::path file = std::filesystem::absolute(platform::PathFromText(name), error);
    return error ? name : file.lexically_normal().string();
}

// Of a command line that Answer leaves to the game.
StartRequest Request(const std::vector<std::string>& arguments) {
    if (arguments.size() < 2)
        return {};
    if (arguments[1] == kLast)
        return {.newest = true};
    return {.gameFile = Absolute(arguments[1])};
}

} // namespace

class TarvethApp : public wxApp {
public:
    explicit TarvethApp(StartRequest request) : request_(std::move(request)) {}

    // Says in words of its own where there is no desktop; the toolkit's are about its own parts.
    bool Initialize(int& argc, wxChar** argv) override {
        const wxLogNull silence;
        const bool done = wxApp::Initialize(argc, argv);
        if (!done)
            std::cerr
                << "tarveth: no desktop is found to show the game's window on. Start it from a desktop, "
                   "or set DISPLAY or WAYLAND_DISPLAY to one.\n";
        return done;
    }

    bool OnInit() override {
        SetAppName("Tarveth");
        platform::BeginReadingFonts();
        program_ = std::make_unique<Program>();
        program_->Start(request_);
        return true;
    }

private:
    StartRequest request_;
    std::unique_ptr<Program> program_;
};

} // namespace tarveth

int main(int argc, char** argv) {
    const std::vector<std::string> arguments = tarveth::platform::CommandLine(argc, argv);
    // --version and --help must work without a display, so they are handled before the toolkit starts.
    if (const std::optional<int> status = tarveth::Answer(arguments))
        return *status;
    // The toolkit deletes the object when it ends.
    wxApp::SetInstance(new tarveth::TarvethApp(tarveth::Request(arguments)));
    // The toolkit needs no file's name, and would warn of one that is not UTF-8.
    int count = std::min(argc, 1);
    return wxEntry(count, argv) == 0 ? 0 : 1;
}
