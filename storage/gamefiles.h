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
    // With Open the user may choose only a file that exists; with Name and Save, one that does not as well.
    enum class Purpose { Open, Name, Save };

    Purpose purpose = Purpose::Open;
    std::string title = {};
    std::string folder = {}; // the folder shown first, without a trailing separator
    std::string name = {};   // the name proposed: a plain file name, or a path
    std::string filter = {}; // the kinds of file to choose from: label|pattern|label|pattern
};

enum class YesNoCancel { Yes, No, Cancel };

// The questions that the commands ask the user. All block until they are answered; events are handled
// meanwhile.
struct GameFilesPort {
    virtual ~GameFilesPort() = default;
    // Gives the full path that the user chooses; nothing when they cancel.
    virtual std::optional<std::string> AskFile(const FileQuestion& question) = 0;
    // Shows a message box with an exclamation mark and the buttons Yes, No and Cancel.
    virtual YesNoCancel AskYesNoCancel(std::string_view text) = 0;
    // Gives today's date in the system's short form. Does not block.
    virtual std::string ShortDate() = 0;
};

// Gives the folder and the plain file name that a file dialog begins with. Where the question proposes a path
// whose folder exists, the dialog begins in that folder; but one that is to save, only if the folder takes a
// file. Path separators in a plain name (a date may have
// them) become "-", since no file name can hold them.
std::pair<std::string, std::string> DialogStart(const FileQuestion& question);

// The commands of the menu that save and load games. A game is saved between two turns: before it is written,
// a turn that is over is ended, and a user who may bring a piece back is asked which.
class GameFiles {
public:
    // Is told the full path of every file that a game is opened from or saved to.
    std::function<void(const std::string& path)> FileUsed = [](const std::string&) {};

    // All references outlive the object. `folder` is the program's folder, with its trailing separator.
    GameFiles(const Game& game, const NetGame& net, GameRecord& record, modMAIN& main, const Ports& ports,
              GameFilesPort& questions, std::string folder);

    // Ask for a file name where one is needed. A file that cannot be written or read gives one message box,
    // and the game on the board, its title and an older file of that name stay as they were.
    void SaveGame();
    void SaveGameAs();
    void LoadGame();

    // Puts the game in the file on the board. Throws platform::FileError when the file is no sound game; the
    // game on the board is then unchanged.
    void OpenGame(const std::string& path);
    // Does the same, but gives a message box for a file that is no sound game.
    void OpenFile(const std::string& path);

    // Puts a game that was kept on the board, under the name of the file that it was last loaded from or
    // saved to; with an empty name, as one never saved.
    void TakeUp(Game game, const std::string& path);
    // Asks for a file name and saves a game that is not the one on the board. Gives the file's path; nothing
    // when it is not saved, since the user has cancelled, or has been told why.
    std::string SaveOther(const Game& game, const std::string& proposedName);

    // Asks for a file name and writes the bytes of a PNG file, a picture of the board.
    void SavePicture(const std::string& bytes);

private:
    // What a file is saved as.
    struct FileKind {
        std::string_view extension;
        const char* filter;
    };
    static const FileKind kGame, kPicture;

    std::string TitleOf(const std::string& path) const;
    std::string ProposedName();
    std::string AskName(FileQuestion::Purpose purpose, std::string title, std::string name,
                        std::string filter);
    std::string AskNewName(std::string title, std::string proposal, const FileKind& kind);
    void ShowTitle();
    bool Attempt(std::string_view failure, const std::function<void()>& work);

    const Game& game_;
    const NetGame& net_;
    GameRecord& record_;
    modMAIN& main_;
    Ports ports_;
    GameFilesPort& questions_;
    std::string folder_;
};

} // namespace tarveth
