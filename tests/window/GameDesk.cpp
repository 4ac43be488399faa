#include "tests/window/GameDesk.h"

#include <algorithm>
#include <fstream>
#include <stdexcept>
#include <utility>

#include <unistd.h>

namespace tarveth::harness {

namespace {

constexpr int kSquares = 8; // in a row of the board

ProgramOptions ForProgram(const GameFolder& folder, const GameDeskOptions& options) {
    std::vector<std::string> command = options.through;
    command.push_back(folder.Program().string());
    command.insert(command.end(), options.arguments.begin(), options.arguments.end());
    ProgramOptions result{.path = command.front(),
                          .arguments = {command.begin() + 1, command.end()},
                          .environment = options.environment,
                          .workingFolder = folder.Path()};
    if (options.scale != 1) {
        result.environment["GDK_SCALE"] = std::to_string(options.scale);
    }
    return result;
}

bool Sleeps(pid_t program) {
    std::ifstream file("/proc/" + std::to_string(program) + "/stat");
    std::string text;
    std::getline(file, text);
    const auto nameEnd = text.rfind(") ");
    return nameEnd != std::string::npos && text.at(nameEnd + 2) == 'S';
}

Rect SquareIn(const Rect& board, std::string_view square) {
    const int width = board.width / kSquares;
    const int height = board.height / kSquares;
    return {board.x + (square.at(0) - '1') * width, board.y + (square.at(1) - 'A') * height, width, height};
}

} // namespace

GameDeskOptions InReadOnlyFolder(const GameFolder& folder, const std::string& data) {
    std::filesystem::permissions(folder.Path(),
                                 std::filesystem::perms::owner_read | std::filesystem::perms::owner_exec);
    GameDeskOptions options{.environment = {{"XDG_DATA_HOME", data}}};
    if (geteuid() == 0) { // root may write everywhere, unless they give up that right
        options.through = {"setpriv", "--bounding-set=-all", "--inh-caps=-all"};
    }
    return options;
}

GameDesk::GameDesk(const GameFolder& folder, const GameDeskOptions& options)
    : program(screen, ForProgram(folder, options)),
      window(program.WaitForWindow("Tarveth")),
      reader(program.Pid()),
      scale_(options.scale) {
    WaitUntilAtRest();
}

Rect GameDesk::Pixels(const Rect& units) const {
    return {units.x * scale_, units.y * scale_, units.width * scale_, units.height * scale_};
}

Rect GameDesk::Place(const std::string& id) const {
    const auto control = reader.WaitFor(WithId(id));
    if (!control) {
        throw std::runtime_error("no control is called " + id + "\n" + reader.Outline());
    }
    return Pixels(control->extents);
}

Rect GameDesk::BoardArea() const {
    if (const Rect now = window.ClientArea(); now != boardWindow_ || board_.width == 0) {
        board_ = Place("picDisplay");
        boardWindow_ = now;
    }
    return board_;
}

Rect GameDesk::SquareArea(std::string_view square) const {
    return SquareIn(BoardArea(), square);
}

void GameDesk::ClickSquare(std::string_view square, Button button) {
    screen.Click(SquareArea(square).Centre(), button);
}

void GameDesk::Move(std::string_view from, std::string_view to) {
    ClickSquare(from);
    if (!PromptBecomes("Place piece")) {
        throw std::runtime_error("no piece can be picked on " + std::string(from) + ": " +
                                 Text("lblMessage"));
    }
    ClickSquare(to);
}

bool GameDesk::TextBecomes(const std::string& id, const std::string& text) const {
    return WaitUntil([&] { return Text(id) == text; });
}

std::vector<std::string> GameDesk::History() const {
    std::vector<std::string> lines;
    bool inList = false;
    for (const AccessibleNode& node : reader.Read()) {
        inList = node.role.starts_with("table c") ? inList : node.id == "lstHistory"; // header and cells
        if (inList && node.role == "table cell") {
            lines.push_back(node.name);
        }
    }
    return lines;
}

void GameDesk::WaitUntilAtRest() {
    if (!ComesToRest(kPatience)) {
        throw std::runtime_error("the program does not come to rest");
    }
}

bool GameDesk::ComesToRest(Milliseconds patience) {
    constexpr Milliseconds kRest{60}; // some frames of the screen
    std::map<pid_t, long long> switches;
    auto since = std::chrono::steady_clock::now();
    return WaitUntil(
        [&] {
            const auto now = std::chrono::steady_clock::now();
            const auto before = std::exchange(switches, program.Usage().voluntarySwitches);
            if (before != switches || !Sleeps(program.Pid())) {
                since = now;
            }
            return now - since >= kRest || !program.Alive();
        },
        patience);
}

Picture GameDesk::Board() {
    WaitUntilAtRest();
    return BoardNow();
}

Picture GameDesk::All() {
    WaitUntilAtRest();
    return window.Capture();
}

void GameDesk::KeepShot(const std::string& name) {
    std::filesystem::create_directories(SHOTS_FOLDER);
    All().WritePng(std::filesystem::path(SHOTS_FOLDER) / (name + ".png"));
}

Window GameDesk::MessageBox() const {
    std::vector<Window> others;
    WaitUntil([&] {
        others = program.Windows();
        std::erase_if(others, [this](const Window& other) { return other.Id() == window.Id(); });
        return !others.empty();
    });
    if (others.size() != 1 || !others.front().Activate()) {
        throw std::runtime_error(std::to_string(others.size()) + " message boxes\n" + reader.Outline());
    }
    return others.front();
}

std::string GameDesk::MessageBoxText() const {
    std::string text;
    bool inBox = false;
    for (const AccessibleNode& node : reader.Read()) {
        inBox = node.depth == 1 ? node.role == "alert" || node.role == "dialog" : inBox;
        if (inBox && node.role == "label" && !node.text.empty()) {
            text += text.empty() ? node.text : "\n" + node.text;
        }
    }
    return text;
}

void GameDesk::Choose(std::string_view menuKey, std::string_view itemKey) {
    screen.Key("Alt+" + std::string(menuKey));
    screen.Key(itemKey);
}

void GameDesk::AnswerFileDialog(const std::string& title, const std::string& path) {
    const Window dialog = program.WaitForWindow(title);
    const auto typed = [&](const AccessibleNode& node) { return node.role == "text" && node.text == path; };
    if (reader.WaitFor(WithRoleAndName("push button", "Cancel"))) {
        screen.Key("Ctrl+A");
        screen.Type(path);
    }
    if (!reader.WaitFor(typed)) {
        throw std::runtime_error(path + " cannot be typed\n" + reader.Outline());
    }
    PressReturnIn(dialog);
}

void GameDesk::TakeProposedFile(const std::string& title) {
    const Window dialog = program.WaitForWindow(title);
    if (!reader.WaitFor(WithRoleAndName("push button", "Cancel"))) {
        throw std::runtime_error("no file dialog\n" + reader.Outline());
    }
    PressReturnIn(dialog);
}

// While it still reads the folder, the toolkit's file dialog loses the key, and may show a spinner for ever.
void GameDesk::PressReturnIn(const Window& dialog) {
    constexpr Milliseconds kLook{2'000};
    for (int keys = 0; dialog.Visible(); ++keys) {
        constexpr int kMostKeys = 20;
        if (keys == kMostKeys) {
            throw std::runtime_error("the dialog does not take its file\n" + reader.Outline());
        }
        screen.Key("Return");
        ComesToRest(kLook);
    }
}

std::optional<int> GameDesk::Close() {
    window.Close();
    return program.WaitForExit();
}

std::string SquaresOfColour(const Picture& board, std::uint32_t colour) {
    std::string squares;
    for (const char row : std::string_view("ABCDEFGH")) {
        for (const char column : std::string_view("12345678")) {
            const std::string square{column, row};
            const Rect area = SquareIn({0, 0, board.width, board.height}, square);
            const int inset = area.width * 3 / 16;
            if (board.Pixel(area.x + inset, area.y + inset) == colour) {
                squares += squares.empty() ? square : ' ' + square;
            }
        }
    }
    return squares;
}

} // namespace tarveth::harness
