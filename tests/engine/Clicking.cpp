#include "tests/engine/Clicking.h"

namespace tarveth::test {

namespace {

// The answers of ChooseReturn to try.
constexpr int kPawnComesBack = 1;
constexpr int kOfficerComesBack = 2;

std::vector<Square> AllSquares() {
    std::vector<Square> squares;
    for (int row = 1; row <= kBoardSize; ++row)
        for (int column = 1; column <= kBoardSize; ++column)
            squares.push_back({column, row});
    return squares;
}

TurnCounts CountsOf(const CompleteTurn& turn, const Game& after) {
    TurnCounts counts{1};
    (turn.own ? counts.own : counts.controlled) = 1;
    counts.captures = turn.captured != 0 ? 1 : 0;
    counts.ownCaptures =
        turn.captured != 0 && turn.own && after.Piece(turn.captured).Side == after.Piece(turn.piece).Side ? 1
                                                                                                          : 0;
    counts.returns = turn.returnKind != 0 ? 1 : 0;
    counts.wins = turn.wins ? 1 : 0;
    return counts;
}

} // namespace

void Clicking::ClickOn(const Game& game, Square square) {
    table_.game = game;
    table_.port.calls.clear();
    table_.main.DepositSquare(square);
    table_.main.Pass();
}

void Clicking::PassOn(const Game& game) {
    table_.game = game;
    table_.main.Pass();
}

void Clicking::ForEachTurn(const Game& start, const Visit& visit) {
    for (const Square from : AllSquares()) {
        ClickOn(start, from);
        if (table_.game.GameState != kPlacePiece)
            continue;
        const Game picked = table_.game;
        for (const Square to : AllSquares()) {
            ClickOn(picked, to);
            if (table_.game.GameState == kPickPiece || table_.game.GameState == kPlacePiece)
                continue; // deselected, refused
            const bool captured = table_.game.JailCount() > picked.JailCount();
            FinishTurn({picked.CurPiece,
                        from,
                        to,
                        captured ? table_.game.Return.CapturedPiece : 0,
                        0,
                        {},
                        picked.Piece(picked.CurPiece).Side == start.Turn},
                       visit);
        }
    }
}

void Clicking::FinishTurn(CompleteTurn turn, const Visit& visit) {
    const Game moved = table_.game;
    if (moved.GameState == kGameOver) {
        turn.wins = true;
        visit(turn, moved);
    } else if (moved.GameState == kTurnOver) {
        PassOn(moved);
        visit(turn, Game(table_.game));
    } else if (PlaceReturns(turn, kPawnComesBack, moved, visit)) {
        PlaceReturns(turn, kOfficerComesBack, moved, visit);
    }
}

// Plays on after a move or capture, with `choice` as the answer to the question which piece returns, and
// visits all returns of it. True if the question was asked.
bool Clicking::PlaceReturns(CompleteTurn turn, int choice, const Game& captured, const Visit& visit) {
    table_.port.returnQuestions = 0;
    table_.port.returnChoice = choice == kOfficerComesBack ? Officer : Pawn;
    PassOn(captured);
    const bool asked = table_.port.returnQuestions > 0;
    const Game due = table_.game;
    if (due.GameState == kTurnOver) {
        PassOn(due);
        visit(turn, Game(table_.game));
        return false;
    }
    for (const Square square : AllSquares()) {
        ClickOn(due, square);
        if (table_.game.GameState != kTurnOver)
            continue;
        turn.returnKind = due.Return.ReturnKind;
        turn.returnTo = square;
        PassOn(Game(table_.game));
        visit(turn, Game(table_.game));
    }
    return asked;
}

std::vector<CompleteTurn> Clicking::ListTurns(const Game& start) {
    std::vector<CompleteTurn> turns;
    ForEachTurn(start, [&](const CompleteTurn& turn, const Game&) { turns.push_back(turn); });
    return turns;
}

TurnCounts Clicking::CountTurns(const Game& start, int depth) {
    TurnCounts counts;
    ForEachTurn(start, [&](const CompleteTurn& turn, const Game& after) {
        if (depth == 1)
            counts += CountsOf(turn, after);
        else if (after.GameState == kPickPiece)
            counts += CountTurns(Game(after), depth - 1);
    });
    return counts;
}

} // namespace tarveth::test
