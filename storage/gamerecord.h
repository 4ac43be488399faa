// The record of the game on the board: the lines of its history in notation, its title, its file and its log.
#pragma once

#include "engine/ports.h"
#include "engine/rules/Game.h"
#include "storage/settings.h"

#include <string>

namespace tarveth {

class GameRecord : public RecordPort {
public:
    // The references outlive the object. `folder` is the one that the log is written to, with its trailing
    // separator.
    GameRecord(Game& game, const Settings& settings, PersonPort& person, std::string folder);

    std::string GameTitle;    // as the game was last loaded or saved; empty for a game never saved
    std::string GameFileName; // its full path

    void RecordMove(int index) override;
    void RecordCapture(int mover, int captured) override;
    void RecordReturn(Square square) override;
    // Writes the log if the settings ask for one, and clears the title and the file name. A log that cannot
    // be written gives a message box.
    void BeginNewRecord() override;
    // Does the same, but writes no log of a game without moves.
    void BeginReceivedRecord() override;
    // Gives the game's own file name with ".log" added, or "lastgame.log" in the folder for a game that was
    // never saved.
    std::string LogPath() const;

private:
    void WriteLog();

    Game& game_;
    const Settings& settings_;
    PersonPort& person_;
    std::string folder_;
};

} // namespace tarveth
