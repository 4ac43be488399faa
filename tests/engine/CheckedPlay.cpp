#include "tests/engine/CheckedPlay.h"

#include "engine/rules/checkgame.h"
#include "tests/PickTurn.h"

#include <algorithm>
#include <stdexcept>

namespace tarveth::test {

namespace {

// Indexed by the state before a pass: the states that may follow.
bool IsTransition(int from, int to) {
    switch (from) {
    case kPickPiece:
        return to == kPickPiece || to == kPlacePiece;
    case kPlacePiece:
        return to == kPlacePiece || to == kPickPiece || to == kAllowReturn || to == kTurnOver ||
               to == kGameOver;
    case kAllowReturn:
    case kReturnPiece:
        return to == kReturnPiece || to == kTurnOver;
    case kTurnOver:
        return to == kPickPiece;
    default:
        return to == from;
    }
}

int CountOnBoard(const Game& game) {
    return static_cast<int>(std::count_if(game.PieceTable.begin() + 1, game.PieceTable.end(),
                                          [](const PieceRecord& piece) { return !piece.InJail(); }));
}

void Require(bool holds, const char* what) {
    if (!holds)
        throw std::logic_error(what);
}

} // namespace

CheckedPlay::CheckedPlay(std::int16_t boardVariant, std::uint64_t seed) : dice_(seed) {
    table_.settings.BoardVariant = boardVariant;
}

void CheckedPlay::NewGame() {
    table_.main.NewGame();
    table_.port.calls.clear();
    table_.port.gameEndSounds.clear();
}

bool CheckedPlay::PlayGame(int longest) {
    NewGame();
    for (int turn = 0; turn < longest && table_.game.GameState != kGameOver; ++turn)
        PlayTurn();
    return table_.game.GameState == kGameOver;
}

bool CheckedPlay::ClickThroughGame(int most) {
    NewGame();
    for (int click = 0; click < most && table_.game.GameState != kGameOver; ++click) {
        table_.port.returnChoice = dice_.Between(1, 2) == 2 ? Officer : Pawn;
        ClickAnywhere();
        while (table_.game.GameState == kAllowReturn || table_.game.GameState == kTurnOver)
            Pass();
    }
    return table_.game.GameState == kGameOver;
}

void CheckedPlay::PlayTurn() {
    const CompleteTurn turn = PickTurn(table_.game, dice_);
    if (dice_.Percent(15))
        ClickAnywhere();
    if (table_.game.GameState == kPlacePiece) // that has picked a piece: put it down
        Click({table_.game.SelX, table_.game.SelY});
    Click(turn.from);
    table_.port.returnChoice = turn.returnKind == Officer ? Officer : Pawn;
    Click(turn.to);
    if (table_.game.GameState == kAllowReturn)
        Pass();
    if (table_.game.GameState == kReturnPiece) {
        if (dice_.Percent(15))
            Click(turn.to); // the mover stands there
        Click(turn.returnTo);
    }
    Require((table_.game.GameState == kGameOver) == turn.wins, "the game ended otherwise than listed");
    if (turn.wins)
        return;
    Require(table_.game.GameState == kTurnOver, "a listed turn was not taken");
    Pass();
}

void CheckedPlay::ClickAnywhere() {
    Click({dice_.Between(0, 9), dice_.Between(0, 9)});
}

void CheckedPlay::Click(Square square) {
    table_.main.DepositSquare(square);
    Pass();
}

void CheckedPlay::Pass() {
    const Game& game = table_.game;
    before_.pieces = game.PieceTable;
    before_.jail = game.JailTable;
    before_.turn = game.Turn;
    before_.state = game.GameState;
    before_.historyLength = game.lstHistory.size();
    before_.beeps = table_.port.beeps;
    table_.main.Pass();
    table_.port.calls.clear();
    CheckPass();
    CheckRefusal();
}

void CheckedPlay::CheckPass() const {
    const Game& game = table_.game;
    const std::string fault = CheckGame(game);
    Require(fault.empty(), fault.c_str());
    Require(CountOnBoard(game) + game.JailCount() == kPieces, "a piece was lost");
    Require(IsTransition(before_.state, game.GameState), "there is no such transition");
    const bool turnEnded = before_.state == kTurnOver;
    const std::int16_t expectedTurn = turnEnded ? std::int16_t{Opponent(before_.turn)} : before_.turn;
    Require(game.Turn == expectedTurn, "the turn passed wrongly");
    Require(game.ClickX == 0 && game.ClickY == 0, "a square was left waiting");
}

// A pass that beeps and leaves the state as it was has refused something.
void CheckedPlay::CheckRefusal() const {
    const Game& game = table_.game;
    if (game.GameState != before_.state || table_.port.beeps == before_.beeps)
        return;
    // The history only grows, so an equal length means that it is unchanged.
    Require(game.PieceTable == before_.pieces && game.JailTable == before_.jail &&
                game.lstHistory.size() == before_.historyLength,
            "a refusal changed the position");
}

} // namespace tarveth::test
