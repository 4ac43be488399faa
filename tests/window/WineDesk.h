// The Windows program on a test's screen, run by Wine. Its controls cannot be read there, so tests use the
// keyboard, find the board by its colours, and look at files and pixels.
#pragma once

#include "tests/window/Program.h"
#include "tests/window/Wine.h"

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace tarveth::harness {

// The sections of tarveth.ini that give the board colours which occur nowhere else on the screen.
inline constexpr char kBoardColours[] = "[BoardBlack]\r\nR=10\r\nG=20\r\nB=100\r\n"
                                        "[BoardWhite]\r\nR=230\r\nG=240\r\nB=160\r\n";

// The sections of tarveth.ini for a board that shows the pieces alone: no marks of where they may go, also
// not under a pointer that happens to rest there, and no bar, which would move the board.
inline constexpr char kPlainBoard[] = "[View]\r\nLegalMoves=0\r\n[Game]\r\nKeepAside=0\r\n";

// A folder with the program and a tarveth.ini in it.
class WineFolder {
public:
    // Lines of [Options], and more sections.
    explicit WineFolder(const std::string& options = {}, const std::string& sections = {});
    ~WineFolder();
    WineFolder(const WineFolder&) = delete;
    WineFolder& operator=(const WineFolder&) = delete;

    [[nodiscard]] const std::filesystem::path& Path() const { return path_; }
    // The bytes of a file, none when it is not there.
    [[nodiscard]] std::string Read(const std::string& file) const;
    void Write(const std::string& file, std::string_view bytes) const;
    // Puts a file there that is built beside the program.
    void Bring(const std::string& file) const;

private:
    std::filesystem::path path_;
};

class WineDesk {
public:
    // Starts the program of `folder`, which must live as long as this does, and waits for the board.
    explicit WineDesk(const WineFolder& folder, const std::vector<std::string>& arguments = {});
    // Starts the program in another way, and waits for the board, which must have those colours.
    explicit WineDesk(const ProgramOptions& start);

    // Gives a picture of the board.
    [[nodiscard]] Picture Board() const { return screen.Capture(board_); }
    // Clicks and waits until the board looks different. False if it does not change.
    [[nodiscard]] bool Click(std::string_view square);
    // Chooses by access keys, such as ("f", "n") for New Game.
    void Choose(std::string_view menuKey, std::string_view itemKey);
    // Keeps a picture of the screen in the build folder's window-shots/.
    void KeepShot(const std::string& name) const;
    // Closes the window; false if the program does not end.
    [[nodiscard]] bool Close();

    Screen screen;
    Program program;
    Window window;

private:
    [[nodiscard]] Rect FindBoard();

    Rect board_;
};

} // namespace tarveth::harness
