#include "storage/gamerecord.h"

#include "platform/file_error.h"
#include "storage/modFileIO.h"
#include "storage/notation.h"

#include <utility>

namespace tarveth {

GameRecord::GameRecord(Game& game, const Settings& settings, PersonPort& person, std::string folder)
    : game_(game), settings_(settings), person_(person), folder_(std::move(folder)) {}

std::string GameRecord::LogPath() const {
    return GameFileName.empty() ? folder_ + "lastgame.log" : GameFileName + ".log";
}

void GameRecord::RecordMove(int index) {
    HistoryAddMove(game_, index);
    Tell(&GameWatch::LineAdded);
}

void GameRecord::RecordCapture(int mover, int captured) {
    HistoryAddCapture(game_, mover, captured);
    Tell(&GameWatch::LineAdded);
}

void GameRecord::RecordReturn(Square square) {
    HistoryAddReturn(game_, square);
    Tell(&GameWatch::LineAdded);
}

void GameRecord::BeginNewRecord() {
    Tell(&GameWatch::GameGivesWay);
    WriteLog();
    GameTitle.clear();
    GameFileName.clear();
}

void GameRecord::BeginReceivedRecord() {
    Tell(&GameWatch::GameGivesWay);
    if (!game_.lstHistory.empty())
        WriteLog();
    GameTitle.clear();
    GameFileName.clear();
}

void GameRecord::BeginLoadedRecord() {
    Tell(&GameWatch::GameGivesWay);
}

void GameRecord::TurnEnded() {
    Tell(&GameWatch::TurnEnded);
}

void GameRecord::GameEnded() {
    Tell(&GameWatch::GameEnded);
}

void GameRecord::Tell(void (GameWatch::*what)()) {
    if (Watch != nullptr)
        (Watch->*what)();
}

void GameRecord::WriteLog() {
    if (!settings_.SavesLogAtGameEnd())
        return;
    try {
        WriteGameLog(game_, LogPath());
    } catch (const platform::FileError& error) {
        person_.ShowMessageBox(std::string("The log of the last game is not saved.\n") + error.what());
    }
}

} // namespace tarveth
