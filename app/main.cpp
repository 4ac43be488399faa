// Starts the game.
#include "app/Program.h"
#include "version.h"

#include <iostream>
#include <memory>
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

// What the command line asks for instead of a game; nothing when it asks for the game.
std::string AnswerTo(int argc, char** argv) {
    for (int i = 1; i < argc; ++i) {
        const std::string_view argument = argv[i];
        if (argument == "--version")
            return std::string("Tarveth ") + kVersion + '\n';
        if (argument == "--help")
            return kUsage;
    }
    return {};
}

} // namespace

} // namespace tarveth

wxIMPLEMENT_APP_NO_MAIN(tarveth::TarvethApp);

int main(int argc, char** argv) {
    // Answered before the toolkit looks for a screen.
    if (const std::string answer = tarveth::AnswerTo(argc, argv); !answer.empty()) {
        std::cout << answer;
        return 0;
    }
    return wxEntry(argc, argv);
}
