// The computer at the board: it thinks beside the window's thread, and hands its turns to the turn machine as
// an opponent's program does.
#pragma once

#include "computer/GameRecord.h"
#include "computer/Player.h"
#include "engine/modMAIN.h"
#include "play/BackgroundSearch.h"
#include "play/ComputerRemarks.h"

#include <chrono>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace tarveth {

class ComputerOpponent {
public:
    // All of these outlive the object, also what runSoon refers to.
    ComputerOpponent(const Game& game, NetGame& net, modMAIN& main, MainWindowPort& window, RunSoon runSoon);

    // From now on it plays `side`: in the game on the board, and in those that follow.
    void PlaySide(std::int16_t side);
    // It plays no side any more.
    void StopPlaying();
    bool PlaysAnySide() const { return net_.ComputerPlaysBlue || net_.ComputerPlaysRed; }

    // What there is to say about the games against it; mostly nothing.
    const std::string& Remark() const { return remarks_.Text(); }

    // 1 to 7. A turn that is being thought about is thought about anew.
    void SetLevel(int level);

    // Plays the best turn found so far where it is thinking; otherwise it thinks about one turn for the side
    // to move.
    void MoveNow();

    // Is to be called after passes of the turn machine: begins to think where it has to move, and stops where
    // the game has become another.
    void Follow();
    bool Thinks() const { return search_.Runs(); }
    // Ends a search at once; nothing is played. To be called when the program closes.
    void StopThinking() { search_.Cancel(); }

    // It answers no sooner, so that its turn can be seen to be one.
    std::chrono::milliseconds LeastTime{500};

private:
    bool& Plays(std::int16_t side) { return side == Blue ? net_.ComputerPlaysBlue : net_.ComputerPlaysRed; }
    bool IsSettled() const;
    bool IsDue() const;
    bool IsAboutTheGame() const;
    void EndSingleTurn();
    void Watch();
    std::int16_t PlayerSide() const;
    void Think();
    void Answer(const std::stop_token& stop, const computer::GameRecord& game,
                const std::vector<std::uint64_t>& earlier);
    void Take(computer::SearchTurn turn);
    void HandOver(computer::SearchTurn turn);

    const Game& game_;
    NetGame& net_;
    modMAIN& main_;
    MainWindowPort& window_;

    std::unique_ptr<computer::Player> player_; // the search's while it runs; made when first needed, for its
                                               // memory
    int level_ = computer::kDefaultLevel;
    BackgroundSearch search_;
    std::int16_t onceFor_ = NoSide;         // the side that it plays for one turn only
    std::vector<PieceRecord> thoughtAbout_; // the pieces as they stood when the thinking began
    std::string told_;                      // what is to be said when its turn is over

    ComputerRemarks remarks_;
    std::vector<std::uint64_t> earlier_; // keys of the positions since the last capture, the present one last
    std::size_t linesSeen_ = 0;          // of the history
    std::size_t jailSeen_ = 0;
};

// How long a level may think about a turn.
std::chrono::milliseconds ThinkingTime(int level);

} // namespace tarveth
