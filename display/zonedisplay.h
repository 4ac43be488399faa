// Shows zones of control on the visible board and clears them again.
#pragma once

#include "display/board.h"
#include "engine/rules/zones.h"

namespace tarveth {

class ZoneDisplay {
public:
    // All of these outlive the object.
    ZoneDisplay(Game& game, BoardDisplay& board, PersonPort& person, DisplayPort& port);

    // Fills one square of the visible board: red for a Master's zone, yellow for an Officer's. Other kinds
    // paint nothing.
    void PaintZoneSquare(int column, int row, int kind);
    // Shows the zone of one piece until the user closes a message box. Index 0 shows only the message box.
    void ShowPieceZone(int index);
    // Shows the zones of the side to move until the user closes a message box.
    void ShowAllZones();
    // Shows the zone of the piece on a square, if there is one, until ClearZone is called.
    void ShowZoneAt(Square square);
    // Redraws the board if ShowZoneAt has been called since the last time.
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
