// Positions for the tests of the computer player.
#pragma once

#include "computer/GameRecord.h"
#include "computer/positionline.h"
#include "engine/rules/positiontext.h"
#include "tests/Dice.h"
#include "tests/engine/RandomPosition.h"

#include <string_view>

namespace tarveth::test {

// From the items of engine/positiontext: "turn B | BM 4D | jail RP".
inline computer::GameRecord RecordOf(std::string_view items) {
    Game game;
    SetPosition(game, items);
    return computer::GameRecord(game);
}

inline computer::SearchTurn OneOfItsTurns(const computer::GameRecord& record, Dice& dice) {
    const auto turns = computer::ListTurns(record.Rules());
    return turns.empty() ? computer::SearchTurn() : dice.OneOf(turns);
}

} // namespace tarveth::test
