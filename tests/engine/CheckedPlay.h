// Plays whole random games through the turn machine and checks every pass.
#pragma once

#include "tests/Dice.h"
#include "tests/TestGame.h"

namespace tarveth::test {

// After every pass, CheckGame must find no fault, no piece may be lost, the state may have changed only by a
// defined transition, the turn may have passed only at the end of a turn and only to the other side, and a
// refusal must have changed nothing. Throws std::logic_error otherwise.
class CheckedPlay {
public:
    CheckedPlay(std::int16_t boardVariant, std::uint64_t seed);

    // Plays a new game by random legal turns, preferring captures, with clicks on random squares in between.
    // True if the game ended within `longest` turns.
    bool PlayGame(int longest);
    // Plays a new game by clicks on random squares. True if it ended within `most` clicks.
    bool ClickThroughGame(int most);

    const Game& Board() const { return table_.game; }

private:
    void NewGame();
    void PlayTurn();
    void ClickAnywhere();
    void Click(Square square);
    void Pass();
    void CheckPass() const;
    void CheckRefusal() const;

    // The game before a pass. It is a member so that its vectors keep their memory.
    struct Position {
        std::vector<PieceRecord> pieces, jail;
        std::int16_t turn = NoSide, state = kReset;
        std::size_t historyLength = 0;
        int beeps = 0;
    };

    TestGame table_;
    Dice dice_;
    Position before_;
};

} // namespace tarveth::test
