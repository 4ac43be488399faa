#include "storage/replay.h"

#include "engine/rules/Game.h"
#include "engine/rules/SquareSet.h"
#include "engine/rules/atrest.h"
#include "storage/playline.h"

#include <algorithm>
#include <optional>
#include <utility>
#include <vector>

namespace tarveth {

namespace {

using Lines = std::vector<HistoryLine>;

Lines ReadLines(const std::vector<std::string>& history) {
    Lines lines;
    lines.reserve(history.size());
    for (const std::string& line : history)
        lines.push_back(ReadHistoryLine(line));
    return lines;
}

// The game without its history, which copying would take most of the time.
Game WithoutHistory(const Game& game) {
    Game bare;
    bare.PieceTable = game.PieceTable;
    bare.JailTable = game.JailTable;
    bare.DirectionTable = game.DirectionTable;
    bare.Turn = game.Turn;
    bare.GameState = kPickPiece;
    return bare;
}

bool IsReturn(const Lines& lines, std::size_t index) {
    return index < lines.size() && std::holds_alternative<ReturnLine>(lines[index]);
}

bool IsAlike(const PieceRecord& a, const PieceRecord& b) {
    return a.Kind == b.Kind && a.Side == b.Side && a.MaxMove == b.MaxMove && a.MaxDiag == b.MaxDiag &&
           a.MaxCtlMove == b.MaxCtlMove && a.MaxCtlDiag == b.MaxCtlDiag;
}

// The square that the piece is barred from; none where it is its own, or off the board.
Square BarOf(const PieceRecord& piece) {
    const Square previous{piece.PrevX, piece.PrevY};
    return previous.OnBoard() && !piece.StandsOn(previous) ? previous : Square{};
}

bool SameSquare(const Game& a, const Game& b, Square square) {
    const int first = PieceOn(a, square);
    const int second = PieceOn(b, square);
    if (first == 0 || second == 0)
        return first == second;
    return IsAlike(a.Piece(first), b.Piece(second)) && BarOf(a.Piece(first)) == BarOf(b.Piece(second));
}

bool SameJail(const Game& a, const Game& b) {
    return std::equal(a.JailTable.begin() + 1, a.JailTable.end(), b.JailTable.begin() + 1, b.JailTable.end(),
                      IsAlike);
}

// Whether no rule and no eye can tell the two apart, but for whose turn it is. Which one of a side and kind
// of pieces stands where makes no difference.
bool SamePosition(const Game& a, const Game& b) {
    if (!std::equal(a.PieceTable.begin(), a.PieceTable.end(), b.PieceTable.begin(), b.PieceTable.end(),
                    IsAlike))
        return false;
    for (int number = 0; number < kSquares; ++number)
        if (!SameSquare(a, b, NumberedSquare(number)))
            return false;
    return SameJail(a, b);
}

// A side that has left out a return may have kept the turn.
bool LeadsTo(const Game& played, const Game& game) {
    return (played.Turn == game.Turn || played.GameState == kReturnPiece) && SamePosition(played, game);
}

// Whose turn it is behind the first `count` lines, where the game played so far leaves it open.
std::int16_t TurnBehind(const Lines& lines, std::size_t count, const Game& played, const Game& game) {
    if (count == lines.size())
        return game.Turn;
    const auto* next = std::get_if<MoveLine>(&lines[count]);
    return next == nullptr ? played.Turn : std::int16_t{next->turn};
}

// Gives the positions from `start`, which stands behind the first `count` lines, to the game; nothing when
// the lines do not lead there by the rules.
std::optional<PastPositions> PlayOn(Game start, std::size_t count, const Lines& lines, const Game& game) {
    PastPositions positions;
    positions.Set(count, start);
    for (; count < lines.size(); ++count) {
        if (!PlayLine(start, lines[count]))
            return std::nullopt;
        if (IsReturn(lines, count + 1))
            continue;
        const std::int16_t turn = std::exchange(start.Turn, TurnBehind(lines, count + 1, start, game));
        positions.Set(count + 1, start);
        start.Turn = turn;
    }
    if (!LeadsTo(start, game))
        return std::nullopt;
    positions.Set(count, game);
    return positions;
}

std::optional<PastPositions> PlayFromLayout(std::int16_t layout, const Lines& lines, const Game& game) {
    Game start;
    CreatePieces(start);
    PlacePieces(start, layout);
    start.Turn = Blue;
    start.GameState = kPickPiece;
    return PlayOn(std::move(start), 0, lines, game);
}

// The earliest position that can be derived from the last one.
struct Beginning {
    Game game;
    std::size_t count = 0; // of the lines that led to it
    std::string gap = {};
};

// Gives the last move before the line; null for none.
const MoveLine* MoveBefore(const Lines& lines, std::size_t index) {
    if (index > 0 && IsReturn(lines, index - 1))
        --index;
    return index == 0 ? nullptr : std::get_if<MoveLine>(&lines[index - 1]);
}

// Gives the line to blame where the one at `index` cannot be undone.
std::size_t FaultyLine(const Lines& lines, std::size_t index, Undoing undoing) {
    if (undoing != Undoing::BeforeDoesNotFit || index == 0)
        return index;
    return index >= 2 && IsReturn(lines, index - 1) ? index - 2 : index - 1;
}

std::string GapOf(const Lines& lines, std::size_t at, Undoing undoing) {
    const std::size_t index = FaultyLine(lines, at, undoing);
    const std::string line = "Line " + std::to_string(index + 1) + " of the history ";
    const std::string end = ", so the game before it cannot be shown.";
    if (const auto* fault = std::get_if<NotationFault>(&lines[index]))
        return line + "is no move or return (character " + std::to_string(fault->place) + " should be " +
               std::string(fault->reason) + ')' + end;
    return line +
           (undoing == Undoing::Ambiguous ? "leaves open which piece of the jail it concerns"
                                          : "does not lead to the position that follows it") +
           end;
}

Undoing UndoLine(Game& game, const Lines& lines, std::size_t index) {
    const MoveLine* before = MoveBefore(lines, index);
    if (before == nullptr && index > 0)
        return std::holds_alternative<NotationFault>(lines[index]) ? Undoing::DoesNotFit
                                                                   : Undoing::BeforeDoesNotFit;
    if (const auto* move = std::get_if<MoveLine>(&lines[index]))
        return UndoMove(game, *move, before);
    const auto* returned = std::get_if<ReturnLine>(&lines[index]);
    return returned == nullptr || before == nullptr ? Undoing::DoesNotFit
                                                    : UndoReturn(game, *returned, *before);
}

// The one place where pieces of the derived positions may have been captured that no rule forbids and every
// reader of saved games takes.
void NameUnknownPlaces(Game& game) {
    for (auto* table : {&game.PieceTable, &game.JailTable})
        for (PieceRecord& piece : *table)
            if (piece.X == kUnknownPlace)
                piece.X = piece.Y = -1;
}

Beginning UndoLines(const Lines& lines, const Game& game) {
    Game undone = WithoutHistory(game);
    Beginning beginning{undone, lines.size()};
    for (std::size_t count = lines.size(); count > 0; --count) {
        const Undoing undoing = UndoLine(undone, lines, count - 1);
        if (undoing != Undoing::Done) {
            beginning.gap = GapOf(lines, count - 1, undoing);
            break;
        }
        if (!IsReturn(lines, count - 1)) { // otherwise the game stands in the middle of a turn
            beginning.game = undone;
            beginning.count = count - 1;
        }
    }
    NameUnknownPlaces(beginning.game);
    return beginning;
}

} // namespace

Replay ReplayHistory(const Game& game) {
    const Lines lines = ReadLines(game.lstHistory);
    for (const std::int16_t layout : {kImperialBoard, kDraumeCrownBoard})
        if (std::optional<PastPositions> all = PlayFromLayout(layout, lines, game))
            return {std::move(*all)};
    Beginning beginning = UndoLines(lines, game);
    if (std::optional<PastPositions> some = PlayOn(beginning.game, beginning.count, lines, game))
        return {std::move(*some), std::move(beginning.gap)};
    Replay none;
    none.positions.Set(lines.size(), game);
    none.gap =
        "The history does not lead to the position on the board, so the game before it cannot be shown.";
    return none;
}

} // namespace tarveth
