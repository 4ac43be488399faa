// A game as it is being played: the position, and what repetition needs to know of those before.
#pragma once

#include "computer/SearchPosition.h"
#include "engine/rules/Game.h"

#include <memory>
#include <vector>

namespace tarveth::computer {

class GameRecord {
public:
    // Throws std::invalid_argument when CheckGame finds fault with the game.
    explicit GameRecord(const Game& game)
        : facts_(std::make_unique<PieceFacts>(game)), position_(CompactGame(game, *facts_)) {}

    const SearchPosition& Position() const { return position_; }
    const CompactGame& Rules() const { return position_.Rules(); }
    // The keys of the positions since the last capture, oldest first, without the present one.
    const std::vector<std::uint64_t>& Earlier() const { return earlier_; }

    // Plays a legal turn.
    void Play(SearchTurn turn) {
        if (turn.IsCapture())
            earlier_.clear();
        else
            earlier_.push_back(position_.Key());
        position_.Play(turn);
    }

private:
    std::unique_ptr<PieceFacts> facts_; // stays where it is when the record moves
    SearchPosition position_;
    std::vector<std::uint64_t> earlier_;
};

// The start of a game on a board of that layout, Blue to move.
inline Game StartOf(std::int16_t boardVariant) {
    Game game;
    CreatePieces(game);
    PlacePieces(game, boardVariant);
    game.Turn = Blue;
    return game;
}

} // namespace tarveth::computer
