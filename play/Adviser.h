// Hints for the player: the best turn that a search of a second finds, and why it is good.
#pragma once

#include "computer/GameRecord.h"
#include "engine/NetGame.h"
#include "engine/ports.h"
#include "engine/rules/MoveTrace.h"
#include "play/BackgroundSearch.h"
#include "play/hint.h"

#include <chrono>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace tarveth {

class Adviser {
public:
    // All of these outlive the object, also what the functions refer to. `repaint` shows the board with the
    // marks as they are then.
    Adviser(const Game& game, const NetGame& net, MainWindowPort& window, RunSoon runSoon,
            std::function<void()> repaint);

    // Looks for a hint for the side to move, and shows it when it has been found. Where there can be none, a
    // sentence says why.
    void GiveHint();
    // Is to be called after passes of the turn machine: a hint ends with the turn that it was for.
    void Follow();
    // Ends a search at once. To be called when the program closes.
    void Stop() { search_.Cancel(); }

    bool Thinks() const { return search_.Runs(); }
    // The turn that the hint shown is about; no squares where there is none.
    const MoveTrace& Shown() const { return shown_; }

    std::chrono::milliseconds Time{1000};

private:
    using Record = std::shared_ptr<const computer::GameRecord>;

    std::string WhyNone() const;
    bool IsAboutTheGame() const { return game_.PieceTable == about_; }
    void Look(const Record& record, const std::stop_token& stop);
    void Show(const computer::GameRecord& record, const HintFindings& found);

    const Game& game_;
    const NetGame& net_;
    MainWindowPort& window_;
    std::function<void()> repaint_;
    std::vector<PieceRecord> about_; // the pieces of the position that the hint is about
    MoveTrace shown_;
    BackgroundSearch search_;
};

} // namespace tarveth
