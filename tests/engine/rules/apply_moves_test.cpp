// Moves, captures and returns that are judged and applied on a Game alone, without the turn machine and its
// ports.
#include "engine/rules/Game.h"
#include "engine/rules/captures.h"
#include "engine/rules/moves.h"
#include "engine/rules/positiontext.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

namespace tarveth {
namespace {

Game Position(std::string_view text) {
    Game game;
    SetPosition(game, text);
    return game;
}

int On(const Game& game, std::string_view square) {
    return PieceOn(game, SquareOf(square));
}

// Judges the move, which must be allowed, and applies it.
MoveResult Move(Game& game, std::string_view from, std::string_view to) {
    const int piece = On(game, from);
    const Verdict verdict = JudgeMove(game, piece, SquareOf(to));
    EXPECT_EQ(verdict.refusal, Refusal::None) << from << ' ' << to;
    BeginMove(game, piece);
    return FinishMove(game, piece, SquareOf(to), verdict.captured);
}

Square CameFrom(const Game& game, int piece) {
    return {game.Piece(piece).PrevX, game.Piece(piece).PrevY};
}

TEST(ApplyMove, IsJudgedFirst) {
    const Game game = Position("turn B | BM 4D | RP 4E");
    EXPECT_EQ(JudgeMove(game, On(game, "4D"), SquareOf("4E")), (Verdict{Refusal::None, 0, On(game, "4E")}));
    EXPECT_EQ(JudgeMove(game, On(game, "4D"), SquareOf("6C")).refusal, Refusal::NoDiagonal);
}

TEST(ApplyMove, ToAFreeSquareTakesNothingAndSaysNothing) {
    Game game = Position("turn B | BM 4D | RM 8H");
    const int master = On(game, "4D");
    const MoveResult result = Move(game, "4D", "4E");
    EXPECT_EQ(result.captured, 0);
    EXPECT_FALSE(result.mayEarnReturn);
    EXPECT_EQ(result.message, "");
    EXPECT_EQ(On(game, "4D"), 0);
    EXPECT_EQ(On(game, "4E"), master);
    EXPECT_EQ(CameFrom(game, master), SquareOf("4D"));
    EXPECT_EQ(game.JailCount(), 0);
}

TEST(ApplyMove, LeavesThePieceWhereItIsUntilItIsFinished) {
    Game game = Position("turn B | BM 4D | RP 4E");
    const int master = On(game, "4D");
    const int pawn = On(game, "4E");
    BeginMove(game, master);
    EXPECT_EQ(On(game, "4D"), master);
    EXPECT_EQ(On(game, "4E"), pawn);
    EXPECT_EQ(game.JailCount(), 0);
    EXPECT_EQ(CameFrom(game, master), SquareOf("4D"));
}

TEST(ApplyMove, BarsOnlyThePieceMovedLastFromGoingBack) {
    Game game = Position("turn B | BM 4D | BM 8A<8B | RM 8H");
    Move(game, "4D", "4E");
    EXPECT_EQ(JudgeMove(game, On(game, "4E"), SquareOf("4D")).refusal, Refusal::Reflection);
    EXPECT_EQ(JudgeMove(game, On(game, "8A"), SquareOf("8B")).refusal, Refusal::None);
}

TEST(ApplyMove, OntoAnOpposingPieceSendsItToTheJailAndSaysWhoTookIt) {
    Game game = Position("turn R | RM 4D | BO 4E | jail BP");
    const int officer = On(game, "4E");
    const MoveResult result = Move(game, "4D", "4E");
    EXPECT_EQ(result.captured, officer);
    EXPECT_TRUE(result.mayEarnReturn);
    EXPECT_EQ(result.message, "Red captured the piece.");
    EXPECT_EQ(game.JailCount(), 2);
    EXPECT_EQ(game.Jailed(2).Kind, Officer) << "the latest stands last";
    EXPECT_EQ(game.Jailed(2).Side, Blue);
    EXPECT_EQ(game.Jailed(2).X, -4);
    EXPECT_EQ(game.Jailed(2).Y, -5);
    EXPECT_EQ(game.Piece(officer).X, -4) << "the square where it was taken, negated";
    EXPECT_EQ(game.Piece(officer).Y, -5);
    EXPECT_EQ(game.Return, (ReturnState{static_cast<std::int16_t>(officer), 0, 0}));
}

TEST(ApplyMove, ThatTakesAPawnEarnsNoReturn) {
    Game game = Position("turn B | BM 4D | RP 4E | RM 8H | jail BP");
    EXPECT_FALSE(Move(game, "4D", "4E").mayEarnReturn);
}

TEST(ApplyReturn, OfAPawnIsDueForAnOfficer) {
    Game game = Position("turn B | BM 4D | RO 4E | RM 8H | jail RP BP");
    const MoveResult result = Move(game, "4D", "4E");
    const ReturnCandidates candidates = FindReturnCandidates(game, result.captured);
    ASSERT_TRUE(candidates.Any());
    EXPECT_FALSE(candidates.Both());
    EXPECT_EQ(candidates.pawnSlot, 2);
    DecideReturn(game, candidates, Pawn);
    EXPECT_EQ(game.Return.ReturnName(), "Pawn");

    const int pawn = ReturnPiece(game, SquareOf("1A"));
    EXPECT_EQ(game.Piece(pawn).Side, Blue);
    EXPECT_EQ(game.Piece(pawn).Kind, Pawn);
    EXPECT_EQ(On(game, "1A"), pawn);
    EXPECT_EQ(game.JailCount(), 2) << "a Red Pawn and the Red Officer";
    EXPECT_EQ(CountJailed(game, Blue, Pawn), 0);
    EXPECT_EQ(FindVictory(game), Victory{});
}

TEST(ApplyReturn, OfAnOfficerOrAPawnIsDueForAMaster) {
    Game game = Position("turn B | BM 4D | RM 4E | RM 8H | jail BO BP");
    const ReturnCandidates candidates = FindReturnCandidates(game, Move(game, "4D", "4E").captured);
    ASSERT_TRUE(candidates.Both());
    DecideReturn(game, candidates, Officer);
    const int officer = PieceToReturn(game, Officer);
    EXPECT_TRUE(IsReturnDue(game, {officer, 1}));
    EXPECT_EQ(ReturnPiece(game, SquareOf("1A")), officer);
    EXPECT_EQ(game.Jailed(1).Side, Red) << "the last entry of the jail has taken the free place";
}

TEST(ApplyReturn, OntoATakenSquareChangesNothing) {
    Game game = Position("turn B | BM 4D | RO 4E | RM 8H | jail BP");
    DecideReturn(game, FindReturnCandidates(game, Move(game, "4D", "4E").captured), Pawn);
    const Game before = game;
    EXPECT_EQ(ReturnPiece(game, SquareOf("8H")), 0);
    EXPECT_EQ(game, before);
}

TEST(ApplyMove, ThatTakesTheLastMasterWins) {
    Game game = Position("turn B | BM 4D | RM 4E | jail RM RM");
    EXPECT_EQ(FindVictory(game), Victory{});
    Move(game, "4D", "4E");
    EXPECT_EQ(FindVictory(game), (Victory{Blue, "Blue has captured all Red's Masters, and wins!"}));
}

} // namespace
} // namespace tarveth
