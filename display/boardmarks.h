// The marks for the eye on the visible board: where a piece may go, what the last move has done, and the
// zones. They are found as values, and drawn into a copy of the presented picture.
#pragma once

#include "display/pixels.h"
#include "engine/rules/MoveTrace.h"
#include "engine/rules/choices.h"
#include "engine/rules/zones.h"
#include "storage/settings.h"

#include <array>
#include <optional>
#include <vector>

namespace tarveth {

struct BoardMarks {
    ChoiceMap choices{};
    MoveTrace last;
    std::array<ZoneMap, 3> zones{}; // by Side; all zero where they are not shown
    MoveTrace hint;                 // the turn that is advised
    int jailSlot = 0;               // the jail entry that comes back, 0 for none

    bool Empty() const { return *this == BoardMarks(); }
    friend bool operator==(const BoardMarks&, const BoardMarks&) = default;
};

// What the marks depend on besides the game and the settings.
struct MarkedView {
    bool mayPlay = true;          // a click now would be the player's own turn
    bool hidden = false;          // nothing is marked, since zones are painted over the board
    std::vector<Square> lookedAt; // the squares under the pointer and the cursor; (0, 0) for none
    MoveTrace last;               // what the history tells of the last move
    MoveTrace hint = {};          // the turn that is advised
};

// Finds the marks that the settings ask for. While a piece glides there are no choices, and it has no zone.
BoardMarks FindMarks(const Game& game, const Settings& settings, const MarkedView& view);

// Draws the marks into the picture of a board whose edge is a multiple of 8. The colours are those of its
// squares: zones are drawn where these are seen, so that they lie under the pieces. All marks have at least
// kShapeContrast with the pixels that they cover.
void DrawMarks(PixelBuffer& board, const BoardMarks& marks, Pixel black, Pixel white);

// Draws the mark of the piece that comes back into the picture of the jail.
void DrawJailMark(PixelBuffer& jail, int slot);

// Give the picture with its marks, or nothing if it has none.
std::optional<PixelBuffer> MarkedBoard(const PixelBuffer& board, const BoardMarks& marks,
                                       const Settings& settings);
std::optional<PixelBuffer> MarkedJail(const PixelBuffer& jail, int slot);

} // namespace tarveth
