#include "play/ComputerRemarks.h"

#include "computer/levels.h"
#include "engine/rules/Game.h"
#include "engine/rules/captures.h"

#include <cstdlib>

namespace tarveth {

void ComputerRemarks::Watch(const Game& game, std::int16_t playerSide, int level,
                            std::size_t turnsSinceCapture) {
    const bool isOver = game.GameState == kGameOver;
    if (playerSide == NoSide) {
        wonInARow_ = 0;
        text_.clear();
    } else if (isOver && !overSeen_) {
        CountGame(FindVictory(game).winner, playerSide);
        text_ = SuggestLevel(level);
    } else if (!isOver) {
        text_ = turnsSinceCapture < kTurnsWithoutCapture
                    ? std::string()
                    : std::to_string(turnsSinceCapture / kTurnsWithoutCapture * kTurnsWithoutCapture) +
                          " turns without a capture: \"Call It a Draw\" in the menu \"Game\" ends this game.";
    }
    overSeen_ = isOver;
}

void ComputerRemarks::CountGame(std::int16_t winner, std::int16_t playerSide) {
    const bool won = winner == playerSide;
    if ((wonInARow_ > 0) != won)
        wonInARow_ = 0;
    wonInARow_ += won ? 1 : -1;
}

std::string ComputerRemarks::SuggestLevel(int level) {
    const int other = level + (wonInARow_ > 0 ? 1 : -1);
    if (std::abs(wonInARow_) < kGamesInARow || other < computer::kWeakestLevel ||
        other > computer::kStrongestLevel)
        return {};
    const std::string result = wonInARow_ > 0 ? "won" : "lost";
    wonInARow_ = 0; // the next word is due after as many games again
    return "You have " + result + " three games in a row: try level " + std::to_string(other) +
           " with \"Change Level\" in the menu \"Game\".";
}

} // namespace tarveth
