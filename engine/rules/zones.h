// Zones of control: the squares on which the side to move may pick an opposing piece.
#pragma once

#include "engine/rules/modPieces.h"

#include <array>
#include <cstdint>
#include <string_view>

namespace tarveth {

// Indexed by column and row, 1 to 8: 1 in the zone of a Master, 2 in the zone of Officers only, 0 in none. To
// be zero-initialised before each computation.
using ZoneMap = std::array<std::array<std::int16_t, kBoardSize + 1>, kBoardSize + 1>;

// Adds one piece's zone to the map. A Pawn, a jailed piece and an index outside the table add nothing.
void ProjectZone(const Game& game, ZoneMap& map, int index);

// Adds the zones of all pieces of the side to move.
void ComputeZones(const Game& game, ZoneMap& map);

// False when all six Pawns or all four Officers of the side to move are in the jail.
bool HasControlPower(const Game& game);

enum class PickRefusal { None, Empty, NoZone, LostPower };

struct PickVerdict {
    PickRefusal refusal = PickRefusal::None;
    int piece = 0; // None: the piece picked
    friend bool operator==(const PickVerdict&, const PickVerdict&) = default;
};

// Judges whether the side to move may select the piece on a square.
PickVerdict JudgePick(const Game& game, Square square);

// Gives the sentence for a refused pick; empty for None, and for an empty square, which is refused silently.
std::string_view RefusalText(PickRefusal refusal);

// Judges the pick and, if it is allowed, selects the piece: sets CurPiece and moves the selection marker to
// the square. A refused pick sets CurPiece to 0 and leaves the marker.
PickVerdict PickPiece(Game& game, Square square);

} // namespace tarveth
