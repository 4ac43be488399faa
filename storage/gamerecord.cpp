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
}

void GameRecord::RecordCapture(int mover, int captured) {
    HistoryAddCapture(game_, mover, captured);
}

void GameRecord::RecordReturn(Square square) {
    HistoryAddReturn(game_, square);
}

void GameRecord::BeginNewRecord() {
    WriteLog();
    GameTitle.clear();
    GameFileName.clear();
}

void GameRecord::BeginReceivedRecord() {
    if (!game_.lstHistory.empty())
        WriteLog();
    GameTitle.clear();
    GameFileName.clear();
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
