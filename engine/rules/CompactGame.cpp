#include "engine/rules/CompactGame.h"

#include "engine/rules/checkgame.h"
#include "engine/rules/moves.h"

#include <algorithm>
#include <stdexcept>

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

// Diagonals of five and seven steps count one more than they are (see DiagonalDistance), so that a piece on
// the destination itself is in the way.
SquareSet OvercountedDiagonals(int from) {
    const auto square = static_cast<std::size_t>(from);
    return (kWithin[5][square] ^ kWithin[4][square]) | (kWithin[7][square] ^ kWithin[6][square]);
}

} // namespace

CompactGame::CompactGame(const Game& game) : turn_(static_cast<Side>(game.Turn)) {
    if (const std::string problem = CheckGame(game); !problem.empty())
        throw std::invalid_argument(problem);
    barred_.fill(kNoSquare);
    for (int i = 1; i <= kPieces; ++i)
        AddPiece(i, game.Piece(i));
    for (const Side side : {Blue, Red})
        for (const PieceKind kind : {Master, Officer, Pawn})
            jailed_(side, kind) = static_cast<std::int8_t>(CountJailed(game, side, kind));
}

void CompactGame::AddPiece(int index, const PieceRecord& piece) {
    const auto i = static_cast<std::size_t>(index);
    const auto side = static_cast<Side>(piece.Side);
    const auto kind = static_cast<PieceKind>(piece.Kind);
    reach_[0][i] = ReachOf(piece.MaxCtlMove, piece.MaxCtlDiag);
    reach_[1][i] = ReachOf(piece.MaxMove, piece.MaxDiag);
    if (piece.InJail()) {
        offBoard_(side, kind) |= std::uint32_t{1} << index;
        return;
    }
    const int square = SquareNumber({piece.X.ToInt16(), piece.Y.ToInt16()});
    standing_(side, kind) |= SetOf(square);
    occupant_[static_cast<std::size_t>(square)] = static_cast<std::int8_t>(index);
    if (const Square previous{piece.PrevX, piece.PrevY}; previous.OnBoard())
        barred_[i] = static_cast<std::int8_t>(SquareNumber(previous));
}

CompactGame::Reach CompactGame::ReachOf(int straightLimit, int diagonalLimit) {
    int diagonal = 0;
    while (diagonalLimit != 0 && diagonal < kLongestMove &&
           DiagonalDistance(diagonal + 1, diagonal + 1) <= straightLimit)
        ++diagonal;
    return {static_cast<std::uint8_t>(std::clamp(straightLimit, 0, kLongestMove)),
            static_cast<std::uint8_t>(diagonal)};
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

CompactGame::Controlled CompactGame::ControlledPieces() const {
    if (jailed_(turn_, Pawn) >= kPawnsPerSide || jailed_(turn_, Officer) >= kOfficersPerSide)
        return {};
    const SquareSet masterZone = ZoneOf(standing_(turn_, Master), kMasterZones);
    const SquareSet officerZone = ZoneOf(standing_(turn_, Officer), kOfficerZones);
    const Side other = Opponent(turn_);
    return {standing_(other, Officer) & masterZone, standing_(other, Pawn) & (masterZone | officerZone)};
}

SquareSet CompactGame::SquaresInReach(int from, Reach reach, SquareSet occupied) const {
    const auto square = static_cast<std::size_t>(from);
    SquareSet squares = SlideStraight(from, occupied) & kWithin[reach.straight][square];
    if (reach.diagonal > 0)
        squares |= SlideDiagonally(from, occupied) & kWithin[reach.diagonal][square] &
                   ~(OvercountedDiagonals(from) & occupied);
    return squares;
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
    barred_.fill(kNoSquare);
    barred_[static_cast<std::size_t>(turn.piece)] = static_cast<std::int8_t>(turn.from);
    if (turn.returnTo != kNoSquare)
        PlayReturn(turn.returnKind, turn.returnTo);
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

} // namespace tarveth
