// A random game whose every position is written down beside its history.
#pragma once

#include "tests/PickTurn.h"
#include "tests/TestGame.h"

#include <map>

namespace tarveth::test {

class RecordedPlay {
public:
    RecordedPlay(std::int16_t boardVariant, std::uint64_t seed);

    // Plays on for so many turns, or to the end of the game.
    void Play(int turns);
    // Takes the game as one that begins here: a history begins anew.
    void ForgetHistory();

    TestGame table;
    std::map<std::size_t, Game> positions; // between two turns, by the number of history lines

private:
    void PlayTurn();
    void Note() { positions[table.game.lstHistory.size()] = table.game; }

    Dice dice_;
};

} // namespace tarveth::test
