// Keeps every game that is played, so that nothing that ends the program or the game loses it. After each
// turn the game on the board is written aside; what an earlier program has left is offered in a bar above the
// board, and so is the game that another one has just replaced.
#pragma once

#include "engine/NetGame.h"
#include "engine/ports.h"
#include "storage/BackgroundWriter.h"
#include "storage/gamebar.h"
#include "storage/gamefiles.h"
#include "storage/gamerecord.h"
#include "storage/keptfiles.h"
#include "storage/keptgame.h"

#include <cstdint>
#include <deque>
#include <functional>
#include <memory>
#include <optional>
#include <string>

namespace tarveth {

// What the keeper works with. All of it outlives the keeper.
struct GameKeeperParts {
    const Game& game;
    const NetGame& net;
    const Settings& settings;
    const GameRecord& record;
    GameFiles& files;
    const NetworkPort& network;
    GameBarPort& bar;
    std::string folder;                // of the settings, with its separator
    std::function<std::int64_t()> now; // seconds since 1970
    // Gives the lines of the network window, in the wire's code page; nothing while it is closed.
    std::function<std::string()> transcript;
    // Calls its argument on the window's thread, from any thread. It may never call it.
    std::function<void(std::function<void()>)> runLater;
};

class GameKeeper : public GameWatch {
public:
    explicit GameKeeper(GameKeeperParts parts);

    // Offers the games that programs of this folder have left behind. To be called once, at the start.
    void OfferAbandoned();
    // The user has pressed a button of the bar. To be called between two passes.
    void Choose(BarChoice choice);
    // The network window is about to close. A game that was played there keeps its lines.
    void ClientCloses();
    // Writes what is still to be written, and keeps the game for the next start. To be called when the
    // program closes, between two passes; nothing follows it.
    void Close();

    void LineAdded() override { moved_ = true; }
    void TurnEnded() override;
    void GameEnded() override;
    void GameGivesWay() override;

private:
    // A game that is not on the board, with its file. It has no file where none could be written.
    struct Kept {
        KeptGame kept;
        std::optional<KeptFile> file;
    };

    KeptGame Snapshot() const;
    std::shared_ptr<const KeptGame> Settled() const;
    void WriteIfNew(std::shared_ptr<const KeptGame> kept);
    void NoteOpponent();
    bool HasFile();
    void Write(std::shared_ptr<const KeptGame> kept);
    void WriteTranscript();
    void Remove(std::optional<KeptFile> file);
    void FileInLibrary(const KeptGame& kept, bool finished, std::optional<KeptFile> file);
    void FileReplaced();
    void ReadAbandoned(KeptFile file);
    Kept TakeOffer();
    void TakeUp(Kept kept);
    void SaveOffered();
    void Report(const std::string& failure);
    void ShowBar();

    GameKeeperParts parts_;
    bool moved_ = false; // a move has been made in the game on the board
    // The game on the board as it was written last, shared with the thread that writes it: a long history
    // takes time to copy.
    std::shared_ptr<const KeptGame> last_;
    std::optional<KeptFile> file_; // where
    std::string opponent_;         // of the game on the board
    std::int16_t side_ = NoSide;
    bool playedInClient_ = false;  // the game on the board, in the network window that is open
    std::optional<Kept> replaced_; // until the game on the board has a turn
    std::deque<Kept> offers_;      // the newest first
    std::string problem_;          // that the bar tells
    std::string lastFailure_;      // of the last write, empty if there was none
    BarLine shown_;

    std::shared_ptr<const char> alive_ = std::make_shared<const char>('\0'); // until Close
    std::optional<BackgroundWriter> writer_;                                 // until Close
};

} // namespace tarveth
