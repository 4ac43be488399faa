// The record of the game on the board: the lines of its history in notation, its title, its file and its log.
#pragma once

#include "engine/ports.h"
#include "engine/rules/Game.h"
#include "storage/settings.h"

#include <string>

namespace tarveth {

// Who is told what becomes of the game on the board, to keep it.
struct GameWatch {
    virtual ~GameWatch() = default;
    virtual void LineAdded() = 0; // to the history, by a move or a return
    virtual void TurnEnded() = 0;
    virtual void GameEnded() = 0;
    virtual void GameGivesWay() = 0; // another game is about to take the place of this one
};

class GameRecord : public RecordPort {
public:
    // The references outlive the object. `folder` is the one that the log is written to, with its trailing
    // separator.
    GameRecord(Game& game, const Settings& settings, PersonPort& person, std::string folder);

    std::string GameTitle;    // as the game was last loaded or saved; empty for a game never saved
    std::string GameFileName; // its full path

    GameWatch* Watch = nullptr; // null where nobody watches; otherwise it outlives the last call

    void RecordMove(int index) override;
    void RecordCapture(int mover, int captured) override;
    void RecordReturn(Square square) override;
    // Writes the log if the settings ask for one, and clears the title and the file name. A log that cannot
    // be written gives a message box.
    void BeginNewRecord() override;
    // Does the same, but writes no log of a game without moves.
    void BeginReceivedRecord() override;
    void BeginLoadedRecord() override;
    void TurnEnded() override;
    void GameEnded() override;
    // Gives the game's own file name with ".log" added, or "lastgame.log" in the folder for a game that was
    // never saved.
    std::string LogPath() const;

private:
    void WriteLog();
    void Tell(void (GameWatch::*what)());

    Game& game_;
    const Settings& settings_;
    PersonPort& person_;
    std::string folder_;
};

} // namespace tarveth
