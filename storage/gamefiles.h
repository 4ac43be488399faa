// The commands that keep the game on the board in a file, and bring a game back from one.
#pragma once

#include "engine/modMAIN.h"
#include "storage/gamerecord.h"

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace tarveth {

// A dialog that asks for the name of a file.
struct FileQuestion {
    // A file to open must be there; one to name or to save may be.
    enum class Purpose { Open, Name, Save };

    Purpose purpose = Purpose::Open;
    std::string title = {};
    std::string folder = {}; // where it begins, without a trailing separator
    std::string name = {};   // proposed: a plain name, or a path
    std::string filter = {}; // label|pattern|label|pattern
};

enum class YesNoCancel { Yes, No, Cancel };

// The questions that the commands ask. All block until they are answered; events are handled meanwhile.
struct GameFilesPort {
    virtual ~GameFilesPort() = default;
    // The full path chosen; nothing when the dialog was cancelled.
    virtual std::optional<std::string> AskFile(const FileQuestion& question) = 0;
    // A box with an exclamation mark and three buttons.
    virtual YesNoCancel AskYesNoCancel(std::string_view text) = 0;
    // Today, as the system writes a date in short. Does not block.
    virtual std::string ShortDate() = 0;
};

// The folder and the plain file name that a file dialog begins with. A proposed path leads to its own folder
// where that is there. Separators in a plain name, as a date may have them, become "-": no file name can hold
// them.
std::pair<std::string, std::string> DialogStart(const FileQuestion& question);

// A game is saved between two turns: one that is over has ended first, and a piece that is due to come back
// has been asked for.
class GameFiles {
public:
    // All references outlive the object. Folder: the program's own, with its trailing separator.
    GameFiles(const Game& game, const NetGame& net, GameRecord& record, modMAIN& main, const Ports& ports,
              GameFilesPort& questions, std::string folder);

    // The commands of the menu. What cannot be written or read gives one message box and changes nothing:
    // neither the game on the board nor its title, nor an older file.
    void SaveGame();
    void SaveGameAs();
    void LoadGame();

    // Puts the game in the file on the board. Throws platform::FileError; then nothing has changed.
    void OpenGame(const std::string& path);

private:
    std::string TitleOf(const std::string& path) const;
    std::string ProposedName();
    std::string AskName(FileQuestion::Purpose purpose, std::string title, std::string name);
    void ShowTitle();
    void Attempt(std::string_view failure, const std::function<void()>& work);

    const Game& game_;
    const NetGame& net_;
    GameRecord& record_;
    modMAIN& main_;
    Ports ports_;
    GameFilesPort& questions_;
    std::string folder_;
};

} // namespace tarveth
