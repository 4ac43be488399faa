// The record of the game on the board: the lines of its history in notation, its title, its file and its log.
#pragma once

#include "engine/ports.h"
#include "engine/rules/Game.h"
#include "storage/settings.h"

#include <string>

namespace tarveth {

class GameRecord : public RecordPort {
public:
    // The references outlive the object. Folder: where the log goes, with its trailing separator.
    GameRecord(Game& game, const Settings& settings, PersonPort& person, std::string folder);

    std::string GameTitle;    // as the game was last loaded or saved; empty for a game never saved
    std::string GameFileName; // its full path

    void RecordMove(int index) override;
    void RecordCapture(int mover, int captured) override;
    void RecordReturn(Square square) override;
    // Writes the log if "AutoSaveLog" is on; one that cannot be written gives a message box. Then title and
    // file name are empty.
    void BeginNewRecord() override;
    // Without moves no log is written.
    void BeginReceivedRecord() override;
    // The game's own file with ".log" behind it, or "lastgame.log" in the folder.
    std::string LogPath() const;

private:
    void WriteLog();

    Game& game_;
    const Settings& settings_;
    PersonPort& person_;
    std::string folder_;
};

} // namespace tarveth
