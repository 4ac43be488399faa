// Plays whole games through the turn machine by chance, and watches every pass.
#pragma once

#include "tests/Dice.h"
#include "tests/TestGame.h"

namespace tarveth::test {

// Every pass is checked: CheckGame, no piece lost, only the transitions that are defined, the turn passing to
// the other side and at no other time, and nothing changed by a refusal. Throws std::logic_error otherwise.
class CheckedPlay {
public:
    CheckedPlay(std::int16_t boardVariant, std::uint64_t seed);

    // Plays a new game by turns from the list, preferring captures, with senseless clicks in between. True
    // when it reached its end within `longest` turns.
    bool PlayGame(int longest);
    // Plays a new game by clicks on any square at all. True when it reached its end within `most` clicks.
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

    // What a pass found; its vectors are used again and again.
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
