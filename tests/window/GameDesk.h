// The running game on a test's screen: its squares by their names, its labels by their given names.
#pragma once

#include "tests/window/Accessible.h"
#include "tests/window/GameFolder.h"
#include "tests/window/Program.h"

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tarveth::harness {

struct GameDeskOptions {
    std::vector<std::string> arguments = {};
    std::map<std::string, std::string> environment = {};
    std::vector<std::string> through = {}; // a command that starts the program it is given
    int scale = 1;                         // pixels of the screen in one of the toolkit's units
};

class GameDesk {
public:
    // Starts the program of `folder`, which must live as long as this does, and waits for the board.
    explicit GameDesk(const GameFolder& folder, const GameDeskOptions& options = {});

    // The toolkit's units as pixels of the screen.
    [[nodiscard]] Rect Pixels(const Rect& units) const;
    // Where a control is on the screen, in pixels. Throws std::runtime_error when there is none of that name.
    [[nodiscard]] Rect Place(const std::string& id) const;
    [[nodiscard]] Rect BoardArea() const;
    // Where the square that a text such as "4E" names is on the screen.
    [[nodiscard]] Rect SquareArea(std::string_view square) const;
    void ClickSquare(std::string_view square, Button button = Button::Left);
    // Clicks on the one square, waits for "Place piece", clicks on the other.
    void Move(std::string_view from, std::string_view to);

    [[nodiscard]] std::string Text(const std::string& id) const { return reader.LabelText(id); }
    // Waits; false when the label does not come to hold the text.
    [[nodiscard]] bool TextBecomes(const std::string& id, const std::string& text) const;
    [[nodiscard]] bool PromptBecomes(const std::string& text) const {
        return TextBecomes("lblMoveStatus", text);
    }
    // The lines of lstHistory.
    [[nodiscard]] std::vector<std::string> History() const;

    // Returns when all events have been dealt with and the program sleeps.
    void WaitUntilAtRest();
    // What is to be seen of the board, and of the whole window, once the program is at rest.
    [[nodiscard]] Picture Board();
    [[nodiscard]] Picture All();
    // The board now, whatever the program is doing.
    [[nodiscard]] Picture BoardNow() const { return screen.Capture(BoardArea()); }
    // Keeps a picture of the window in the build folder's window-shots/.
    void KeepShot(const std::string& name);

    // The one message box that is open, or comes soon. Throws std::runtime_error when none comes or there are
    // more.
    [[nodiscard]] Window MessageBox() const;
    // What it says.
    [[nodiscard]] std::string MessageBoxText() const;
    // Chooses by access keys, such as ("F", "n") for New Game.
    void Choose(std::string_view menuKey, std::string_view itemKey);
    // Answers the file dialog of that title, which is open or comes soon, with a path. Throws
    // std::runtime_error when it does not take it.
    void AnswerFileDialog(const std::string& title, const std::string& path);
    // Closes the window; the exit status, nothing when the program stays.
    std::optional<int> Close();

    Screen screen;
    Program program;
    Window window;
    ScreenReader reader;

private:
    bool ComesToRest(Milliseconds patience);

    int scale_;
    mutable Rect board_{}; // of picDisplay, while the window is where boardWindow_ says
    mutable Rect boardWindow_{};
};

// The squares with this colour where no piece and no marker reaches, row by row: "4A 5A 4B".
std::string SquaresOfColour(const Picture& board, std::uint32_t colour);

} // namespace tarveth::harness
