// What the turn machine asks of the user's settings.
#pragma once

#include "engine/rules/modPieces.h"

#include <cstdint>

namespace tarveth {

// The numbers stay as they were read: a yes-or-no setting means yes by any number other than 0.
struct GameOptions {
    std::int16_t BoardVariant = kImperialBoard; // 1 Imperial, any other Draume Crown
    std::int16_t AnimateMoves = -1;

    friend bool operator==(const GameOptions&, const GameOptions&) = default;
    bool MovesAreAnimated() const { return AnimateMoves != 0; }
};

} // namespace tarveth
