// The running game on a test's screen. Squares are given by names such as "4E", controls by their given
// names.
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

// Makes the folder one that cannot be written, as that of an installed program, and gives the options for the
// program in it, with the user's own data folder in `data`.
GameDeskOptions InReadOnlyFolder(const GameFolder& folder, const std::string& data);

class GameDesk {
public:
    // Starts the program of `folder`, which must live as long as this does, and waits for the board.
    explicit GameDesk(const GameFolder& folder, const GameDeskOptions& options = {});

    // Converts the toolkit's units to pixels of the screen.
    [[nodiscard]] Rect Pixels(const Rect& units) const;
    // Gives the place of a control on the screen in pixels. Throws std::runtime_error when there is none of
    // that name.
    [[nodiscard]] Rect Place(const std::string& id) const;
    [[nodiscard]] Rect BoardArea() const;
    // Has the board looked for again. Is needed where it moves in a window that stays as it is.
    void ForgetBoardArea() { board_ = {}; }
    // Gives the place of a square on the screen.
    [[nodiscard]] Rect SquareArea(std::string_view square) const;
    void ClickSquare(std::string_view square, Button button = Button::Left);
    // Clicks on the one square, waits for "Place piece", clicks on the other.
    void Move(std::string_view from, std::string_view to);

    [[nodiscard]] std::string Text(const std::string& id) const { return reader.LabelText(id); }
    // Waits until the label has the text; false if that does not happen.
    [[nodiscard]] bool TextBecomes(const std::string& id, const std::string& text) const;
    [[nodiscard]] bool PromptBecomes(const std::string& text) const {
        return TextBecomes("lblMoveStatus", text);
    }
    // Gives the lines of lstHistory.
    [[nodiscard]] std::vector<std::string> History() const;

    // Waits until the program has handled all events and sleeps.
    void WaitUntilAtRest();
    // Wait until the program is at rest, and give a picture of the board or of the whole window.
    [[nodiscard]] Picture Board();
    [[nodiscard]] Picture All();
    // Gives a picture of the board at once.
    [[nodiscard]] Picture BoardNow() const { return screen.Capture(BoardArea()); }
    // Keeps a picture of the window in the build folder's window-shots/.
    void KeepShot(const std::string& name);

    // Waits for a message box. Throws std::runtime_error when none comes or there are several.
    [[nodiscard]] Window MessageBox() const;
    // Gives the text of the message box.
    [[nodiscard]] std::string MessageBoxText() const;
    // Chooses a menu item by its access keys, such as ("F", "n") for New Game.
    void Choose(std::string_view menuKey, std::string_view itemKey);
    // Waits for the file dialog of that title and enters a path. Throws std::runtime_error when the dialog
    // does not close.
    void AnswerFileDialog(const std::string& title, const std::string& path);
    // Waits for such a dialog and takes the file that it proposes. Throws std::runtime_error when it does not
    // close.
    void TakeProposedFile(const std::string& title);
    // Closes the window. Gives the program's exit status; nothing if it does not end.
    std::optional<int> Close();

    Screen screen;
    Program program;
    Window window;
    ScreenReader reader;

private:
    void PressReturnIn(const Window& dialog);
    bool ComesToRest(Milliseconds patience);

    int scale_;
    mutable Rect board_{}; // of picDisplay, while the window is where boardWindow_ says
    mutable Rect boardWindow_{};
};

// Gives the squares that have this colour at a place that no piece or marker covers, row by row, as in "4A 5A
// 4B".
std::string SquaresOfColour(const Picture& board, std::uint32_t colour);

} // namespace tarveth::harness
