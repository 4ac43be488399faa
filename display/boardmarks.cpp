#include "display/boardmarks.h"

#include "engine/rules/Game.h"

namespace tarveth {

namespace {

// Those of ComputeZones for the side to move, without a piece that glides.
ZoneMap ZonesOf(const Game& game, std::int16_t side) {
    ZoneMap map{};
    for (int i = 1; i <= game.PieceCount(); ++i)
        if (i != game.AnimatedPiece && game.Piece(i).Side == side)
            ProjectZone(game, map, i);
    return map;
}

void FindZones(BoardMarks& marks, const Game& game, const Settings& settings) {
    for (const Side side : {Blue, Red})
        if (side == game.Turn || settings.ShowsBothZones())
            marks.zones[static_cast<std::size_t>(side)] = ZonesOf(game, side);
}

void FindChoices(BoardMarks& marks, const Game& game, const MarkedView& view) {
    marks.choices = ListDestinations(game);
    marks.jailSlot = JailSlotToReturn(game);
    if (game.GameState != kPickPiece)
        return;
    for (const Square square : view.lookedAt)
        if (square.OnBoard())
            marks.choices[static_cast<std::size_t>(square.column)][static_cast<std::size_t>(square.row)] =
                JudgeChoice(game, square);
}

} // namespace

BoardMarks FindMarks(const Game& game, const Settings& settings, const MarkedView& view) {
    BoardMarks marks;
    if (view.hidden)
        return marks;
    if (settings.MarksLegalMoves() && view.mayPlay && !game.Animating)
        FindChoices(marks, game, view);
    if (!game.Animating)
        marks.hint = view.hint;
    if (settings.MarksLastMove())
        marks.last = view.last;
    if (settings.ShowsZones())
        FindZones(marks, game, settings);
    return marks;
}

} // namespace tarveth
