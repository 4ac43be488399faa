#include "engine/rules/CompactGame.h"

#include "engine/rules/Game.h"

#include <cassert>

namespace tarveth {

namespace {

// A Master projects onto the four diagonal neighbours and two squares away along the lines; an Officer onto
// all eight neighbours.
constexpr SquareTable MakeZones(PieceKind kind) {
    SquareTable zones{};
    for (int from = 0; from < kSquares; ++from)
        for (const Square step : kSteps) {
            const bool far = kind == Master && (step.column == 0 || step.row == 0);
            const int steps = far ? 2 : 1;
            const Square centre = NumberedSquare(from);
            zones[static_cast<std::size_t>(from)] |=
                SetOf(Square{centre.column + steps * step.column, centre.row + steps * step.row});
        }
    return zones;
}

constexpr SquareTable kMasterZones = MakeZones(Master);
constexpr SquareTable kOfficerZones = MakeZones(Officer);

SquareSet ZoneOf(SquareSet pieces, const SquareTable& zones) {
    SquareSet zone = 0;
    while (pieces != 0)
        zone |= zones[static_cast<std::size_t>(TakeFirst(pieces))];
    return zone;
}

} // namespace

CompactGame::CompactGame(const Game& game, const PieceFacts& facts)
    : turn_(static_cast<Side>(game.Turn)), facts_(&facts) {
    for (int i = 1; i <= kPieces; ++i)
        AddPiece(i, game.Piece(i));
    for (const Side side : {Blue, Red})
        for (const PieceKind kind : {Master, Officer, Pawn})
            jailed_(side, kind) = static_cast<std::int8_t>(CountJailed(game, side, kind));
    assert(Check().empty());
}

void CompactGame::AddPiece(int index, const PieceRecord& piece) {
    const auto side = static_cast<Side>(piece.Side);
    const auto kind = static_cast<PieceKind>(piece.Kind);
    if (piece.InJail()) {
        offBoard_(side, kind) |= std::uint32_t{1} << index;
        return;
    }
    const int square = SquareNumber({piece.X.ToInt16(), piece.Y.ToInt16()});
    standing_(side, kind) |= SetOf(square);
    occupant_[static_cast<std::size_t>(square)] = static_cast<std::int8_t>(index);
}

bool CompactGame::HasLost(Side side, const JailCounts& jailed) {
    return jailed(side, Master) >= kMastersPerSide ||
           (jailed(side, Officer) >= kOfficersPerSide && jailed(side, Pawn) >= kPawnsPerSide);
}

CaptureOutcome CompactGame::OutcomeOfCapture(Side side, PieceKind kind) const {
    JailCounts jailed = jailed_;
    ++jailed(side, kind);
    CaptureOutcome outcome{HasLost(side, jailed)};
    if (!outcome.endsGame && side != turn_) {
        outcome.pawnReturns = kind != Pawn && MayReturn(Pawn);
        outcome.officerReturns = kind == Master && MayReturn(Officer);
    }
    return outcome;
}

Controlled CompactGame::ControlledPieces(Side side) const {
    if (!HasControlPower(side))
        return {};
    const SquareSet masterZone = ZoneOf(standing_(side, Master), kMasterZones);
    const SquareSet officerZone = ZoneOf(standing_(side, Officer), kOfficerZones);
    const Side other = Opponent(side);
    return {standing_(other, Officer) & masterZone, standing_(other, Pawn) & (masterZone | officerZone)};
}

bool CompactGame::InZone(Side side, PieceKind kind, int square) const {
    // Both patterns are symmetric: a piece projects onto the squares that would project onto its own.
    const auto from = static_cast<std::size_t>(square);
    return (kind != Master && (kMasterZones[from] & standing_(side, Master)) != 0) ||
           (kind == Pawn && (kOfficerZones[from] & standing_(side, Officer)) != 0);
}

bool CompactGame::CouldGo(int from, int to) const {
    const Side other = Opponent(turn_);
    const bool own = (Standing(turn_) & SetOf(from)) != 0;
    if (!own && !(HasControlPower(turn_) && InZone(turn_, KindOn(other, from), from)))
        return false;
    const bool takesAnything = (standing_(turn_, Master) & SetOf(from)) != 0;
    const SquareSet barring = takesAnything ? 0 : Standing(turn_);
    return (SquaresInReach(from, facts_->ReachOf(PieceAt(from), own), Occupied()) & ~barring & SetOf(to)) !=
           0;
}

PieceKind CompactGame::KindOn(Side side, int square) const {
    const SquareSet here = SetOf(square);
    if ((standing_(side, Master) & here) != 0)
        return Master;
    return (standing_(side, Officer) & here) != 0 ? Officer : Pawn;
}

void CompactGame::Play(const CompactTurn& turn) {
    const Side side = turn.own ? turn_ : Opponent(turn_);
    const SquareSet to = SetOf(turn.to);
    if (turn.captured != 0) {
        const Side takenSide = (Standing(Blue) & to) != 0 ? Blue : Red;
        const PieceKind takenKind = KindOn(takenSide, turn.to);
        standing_(takenSide, takenKind) ^= to;
        offBoard_(takenSide, takenKind) |= std::uint32_t{1} << turn.captured;
        ++jailed_(takenSide, takenKind);
    }
    standing_(side, KindOn(side, turn.from)) ^= SetOf(turn.from) | to;
    occupant_[static_cast<std::size_t>(turn.from)] = 0;
    occupant_[static_cast<std::size_t>(turn.to)] = static_cast<std::int8_t>(turn.piece);
    lastMoved_ = static_cast<std::int8_t>(turn.piece);
    lastFrom_ = static_cast<std::int8_t>(turn.from);
    lastTo_ = static_cast<std::int8_t>(turn.to);
    if (turn.returnTo != kNoSquare)
        PlayReturn(turn.returnKind, turn.returnTo);
    turn_ = Opponent(turn_);
    assert(Check().empty());
}

void CompactGame::Pass() {
    lastMoved_ = kPieces + 1;
    lastFrom_ = lastTo_ = kNoSquare;
    turn_ = Opponent(turn_);
}

void CompactGame::PlayReturn(PieceKind kind, int to) {
    std::uint32_t& candidates = offBoard_(turn_, kind);
    const int piece = std::countr_zero(candidates);
    candidates &= candidates - 1;
    --jailed_(turn_, kind);
    standing_(turn_, kind) |= SetOf(to);
    occupant_[static_cast<std::size_t>(to)] = static_cast<std::int8_t>(piece);
}

std::string CompactGame::CheckSets() const {
    SquareSet seen = 0;
    std::uint32_t pieces = 0;
    for (const Side side : {Blue, Red})
        for (const PieceKind kind : {Master, Officer, Pawn}) {
            if ((seen & standing_(side, kind)) != 0)
                return "two pieces stand on one square";
            seen |= standing_(side, kind);
        }
    for (int square = 0; square < kSquares; ++square) {
        const int piece = PieceAt(square);
        if ((piece != 0) != ((seen & SetOf(square)) != 0) || piece < 0 || piece > kPieces)
            return "square " + std::to_string(square) + " and its occupant disagree";
        const std::uint32_t bit = piece == 0 ? 0 : std::uint32_t{1} << piece;
        if ((pieces & bit) != 0)
            return "piece " + std::to_string(piece) + " stands on two squares";
        pieces |= bit;
    }
    return {};
}

std::string CompactGame::CheckJail() const {
    int off = 0;
    for (const Side side : {Blue, Red})
        for (const PieceKind kind : {Master, Officer, Pawn}) {
            const int without = CountOf(offBoard_(side, kind));
            if (jailed_(side, kind) < 0 || jailed_(side, kind) > without)
                return "the jail holds pieces that are not off the board";
            off += without;
        }
    if (off + CountOf(Occupied()) != kPieces)
        return "there are not 26 pieces";
    return {};
}

std::string CompactGame::Check() const {
    if (turn_ != Blue && turn_ != Red)
        return "it is nobody's turn";
    if (std::string problem = CheckSets(); !problem.empty())
        return problem;
    return CheckJail();
}

} // namespace tarveth
