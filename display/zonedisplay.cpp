#include "display/zonedisplay.h"

#include <cmath>

namespace tarveth {

namespace {

constexpr Pixel kMasterZone = Rgb(255, 0, 0);
constexpr Pixel kOfficerZone = Rgb(255, 255, 0);
constexpr int kAsTheMapSays = 0;

} // namespace

ZoneDisplay::ZoneDisplay(Game& game, BoardDisplay& board, PersonPort& person, DisplayPort& port)
    : game_(game), board_(board), person_(person), port_(port) {}

void ZoneDisplay::PaintZoneSquare(int column, int row, int kind) {
    if (kind != Master && kind != Officer)
        return;
    const int w = static_cast<int>(std::nearbyint(board_.picDisplay.Pixels.Width() / double{kBoardSize}));
    const int h = static_cast<int>(std::nearbyint(board_.picDisplay.Pixels.Height() / double{kBoardSize}));
    board_.picDisplay.Pixels.FillBox((column - 1) * w, (row - 1) * h, w, h,
                                     kind == Master ? kMasterZone : kOfficerZone);
}

// Paints all squares of the zone in the colour of `kind`; with kAsTheMapSays, each in that of the map's kind.
void ZoneDisplay::PaintMap(const ZoneMap& map, int kind) {
    for (int column = 1; column <= kBoardSize; ++column)
        for (int row = 1; row <= kBoardSize; ++row)
            if (const int zone = map[static_cast<std::size_t>(column)][static_cast<std::size_t>(row)])
                PaintZoneSquare(column, row, kind == kAsTheMapSays ? zone : kind);
    board_.ZonePainted = true;
    port_.RefreshDisplay();
}

void ZoneDisplay::ShowPieceZone(int index) {
    ZoneMap map{};
    ProjectZone(game_, map, index);
    if (index >= 1 && index <= game_.PieceCount())
        PaintMap(map, game_.Piece(index).Kind);
    WaitAndClear();
}

void ZoneDisplay::ShowAllZones() {
    ZoneMap map{};
    ComputeZones(game_, map);
    PaintMap(map, kAsTheMapSays);
    WaitAndClear();
}

void ZoneDisplay::WaitAndClear() {
    person_.ShowMessageBox("Click OK to clear the zone and continue");
    board_.RedrawBoard();
}

void ZoneDisplay::ShowZoneAt(Square square) {
    zoneShown_ = true;
    const int index = PieceOn(game_, square);
    if (index == 0)
        return;
    ZoneMap map{};
    ProjectZone(game_, map, index);
    PaintMap(map, game_.Piece(index).Kind);
}

void ZoneDisplay::ClearZone() {
    if (!zoneShown_)
        return;
    zoneShown_ = false;
    board_.RedrawBoard();
}

} // namespace tarveth
