// Starts the game.
#include "app/Program.h"
#include "version.h"

#include <iostream>
#include <memory>
#include <optional>
#include <string_view>

#include <wx/app.h>

namespace tarveth {

namespace {

constexpr char kUsage[] =
    "Usage: tarveth [--version] [--help]\n"
    "Starts the game. Settings and logs are kept beside the program, or in your own data\n"
    "folder where the program's folder cannot be written.\n";

class TarvethApp : public wxApp {
public:
    bool OnInit() override {
        SetAppName("Tarveth");
        program_ = std::make_unique<Program>();
        program_->Start();
        return true;
    }

private:
    std::unique_ptr<Program> program_;
};

// Answers the command line where it asks for something else than the game; nothing where the game is to
// start.
std::optional<int> Answer(int argc, char** argv) {
    if (argc < 2)
        return std::nullopt;
    const std::string_view argument = argv[1];
    if (argument == "--version") {
        std::cout << "Tarveth " << kVersion << '\n';
        return 0;
    }
    if (argument == "--help") {
        std::cout << kUsage;
        return 0;
    }
    std::cerr << "tarveth: " << argument << " is not understood.\n" << kUsage;
    return 2;
}

} // namespace

} // namespace tarveth

wxIMPLEMENT_APP_NO_MAIN(tarveth::TarvethApp);

int main(int argc, char** argv) {
    // Answered before the toolkit looks for a screen.
    if (const std::optional<int> status = tarveth::Answer(argc, argv))
        return *status;
    return wxEntry(argc, argv);
}
