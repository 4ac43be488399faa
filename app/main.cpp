// Starts the game.
#include "app/Program.h"
#include "display/wx/text.h"
#include "version.h"

#include <filesystem>
#include <iostream>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>

#include <wx/app.h>

namespace tarveth {

namespace {

constexpr char kUsage[] =
    "Usage: tarveth [FILE.TSG | --version | --help]\n"
    "Starts the game, or goes on with the saved game FILE.TSG. Settings, logs and saved games\n"
    "are kept beside the program, or in your own data folder where the program's folder\n"
    "cannot be written.\n";

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
    // A desktop passes the file that was double-clicked.
    if (argc == 2 && !argument.starts_with('-') && !argument.empty())
        return std::nullopt;
    std::cerr << "tarveth: " << (argc == 2 ? argument : argv[2]) << " is not understood.\n" << kUsage;
    return 2;
}

} // namespace

class TarvethApp : public wxApp {
public:
    bool OnInit() override {
        SetAppName("Tarveth");
        program_ = std::make_unique<Program>();
        program_->Start(GameFile());
        return true;
    }

private:
    // Absolute, since the program leaves the folder it was started in.
    std::string GameFile() const {
        if (argc < 2)
            return {};
        std::error_code error;
        const std::string name = PathFromWx(argv[1]);
        const std::filesystem::path file = std::filesystem::absolute(name, error);
        return error ? name : file.lexically_normal().string();
    }

    std::unique_ptr<Program> program_;
};

} // namespace tarveth

wxIMPLEMENT_APP_NO_MAIN(tarveth::TarvethApp);

int main(int argc, char** argv) {
    // Answered before the toolkit looks for a screen.
    if (const std::optional<int> status = tarveth::Answer(argc, argv))
        return *status;
    return wxEntry(argc, argv);
}
