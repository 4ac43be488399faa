// Showing zones of control over the visible board, and clearing them again.
#pragma once

#include "display/board.h"
#include "engine/rules/zones.h"

namespace tarveth {

class ZoneDisplay {
public:
    // All of these outlive the object.
    ZoneDisplay(Game& game, BoardDisplay& board, PersonPort& person, DisplayPort& port);

    // Fills one square of the visible board: red for a Master's zone (kind 1), yellow for an Officer's (2).
    void PaintZoneSquare(int column, int row, int kind);
    // The zone of one piece, until the message box about it is closed. Index 0 shows the box alone.
    void ShowPieceZone(int index);
    // The zones of the side to move, likewise.
    void ShowAllZones();
    // The zone of the piece on a square, if there is one, until ClearZone.
    void ShowZoneAt(Square square);
    // Redraws the board if a zone has been shown on it.
    void ClearZone();

private:
    void PaintMap(const ZoneMap& map, int kind);
    void WaitAndClear();

    Game& game_;
    BoardDisplay& board_;
    PersonPort& person_;
    DisplayPort& port_;
    bool zoneShown_ = false;
};

} // namespace tarveth
