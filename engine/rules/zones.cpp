#include "engine/rules/zones.h"

#include "engine/rules/Game.h"

namespace tarveth {

namespace {

constexpr int kDirectionCount = 8;

} // namespace

void ProjectZone(const Game& game, ZoneMap& map, int index) {
    if (index < 1 || index > game.PieceCount())
        return;
    const PieceRecord& piece = game.Piece(index);
    if (piece.Kind != Master && piece.Kind != Officer)
        return;
    const auto& pattern = game.DirectionTable[static_cast<std::size_t>(piece.Kind)];
    for (std::size_t d = 1; d <= kDirectionCount; ++d) {
        const Square target{piece.X.ToInt16() + pattern[d][1], piece.Y.ToInt16() + pattern[d][2]};
        if (!target.OnBoard())
            continue;
        std::int16_t& zone =
            map[static_cast<std::size_t>(target.column)][static_cast<std::size_t>(target.row)];
        if (zone == 0 || piece.Kind < zone)
            zone = piece.Kind;
    }
}

void ComputeZones(const Game& game, ZoneMap& map) {
    for (int i = 1; i <= game.PieceCount(); ++i)
        if (game.Piece(i).Side == game.Turn)
            ProjectZone(game, map, i);
}

bool HasControlPower(const Game& game) {
    return CountJailed(game, game.Turn, Pawn) < kPawnsPerSide &&
           CountJailed(game, game.Turn, Officer) < kOfficersPerSide;
}

PickVerdict JudgePick(const Game& game, Square square) {
    const int index = square.OnBoard() ? PieceOn(game, square) : 0; // a jailed piece is never picked
    if (index == 0)
        return {PickRefusal::Empty};
    const PieceRecord& piece = game.Piece(index);
    if (piece.Side == game.Turn)
        return {PickRefusal::None, index};

    ZoneMap map{};
    ComputeZones(game, map);
    const int zone = map[static_cast<std::size_t>(square.column)][static_cast<std::size_t>(square.row)];
    if (zone == 0 || zone >= piece.Kind)
        return {PickRefusal::NoZone};
    if (!HasControlPower(game))
        return {PickRefusal::LostPower};
    return {PickRefusal::None, index};
}

std::string_view RefusalText(PickRefusal refusal) {
    switch (refusal) {
    case PickRefusal::NoZone:
        return "Not in a valid zone of control";
    case PickRefusal::LostPower:
        return "Can't control opposing pieces (Lost Power rule).";
    default:
        return {};
    }
}

PickVerdict PickPiece(Game& game, Square square) {
    const PickVerdict verdict = JudgePick(game, square);
    game.CurPiece = static_cast<std::int16_t>(verdict.piece);
    if (verdict.refusal == PickRefusal::None) {
        game.SelX = static_cast<std::int16_t>(square.column);
        game.SelY = static_cast<std::int16_t>(square.row);
    }
    return verdict;
}

} // namespace tarveth
