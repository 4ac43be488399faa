// The user's settings that the turn machine depends on.
#pragma once

#include "engine/rules/modPieces.h"

#include <cstdint>

namespace tarveth {

// The members keep the numbers that were read; a yes-or-no setting is yes for any number other than 0.
struct GameOptions {
    std::int16_t BoardVariant = kImperialBoard; // any other value is the Draume Crown Board
    std::int16_t AnimateMoves = -1;

    friend bool operator==(const GameOptions&, const GameOptions&) = default;
    bool MovesAreAnimated() const { return AnimateMoves != 0; }
    bool UsesImperialBoard() const { return BoardVariant == kImperialBoard; }
};

} // namespace tarveth
