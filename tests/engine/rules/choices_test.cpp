// What a click would do, held against the judgement of the click and against the click itself.
#include "engine/rules/choices.h"

#include "engine/rules/captures.h"
#include "engine/rules/moves.h"
#include "engine/rules/turns.h"
#include "engine/rules/zones.h"
#include "tests/TestGame.h"
#include "tests/engine/RandomPosition.h"

#include <gtest/gtest.h>

namespace tarveth::test {

namespace {

constexpr int kPositions = 4'000;

Choice On(const ChoiceMap& choices, Square square) {
    return choices[static_cast<std::size_t>(square.column)][static_cast<std::size_t>(square.row)];
}

template <typename Check>
void ForEachSquare(Check check) {
    for (int row = 1; row <= kBoardSize; ++row)
        for (int column = 1; column <= kBoardSize; ++column)
            check(Square{column, row});
}

bool IsTaking(Choice choice) {
    return choice == Choice::Capture || choice == Choice::WinningCapture;
}

// A game in state 2, with a random one of the pieces that may be picked; state 1 if there is none.
Game WithPickedPiece(Game game, Dice& dice) {
    std::vector<Square> pickable;
    ForEachSquare([&](Square square) {
        if (JudgePick(game, square).refusal == PickRefusal::None)
            pickable.push_back(square);
    });
    if (pickable.empty())
        return game;
    PickPiece(game, dice.OneOf(pickable));
    game.GameState = kPlacePiece;
    return game;
}

// Plays the move to its end.
int Winner(Game game, int index, Square to, int captured) {
    BeginMove(game, index);
    FinishMove(game, index, to, captured);
    return FindVictory(game).winner;
}

} // namespace

TEST(Choices, OfPickingAreThoseThatAClickIsAllowed) {
    Dice dice(11);
    int own = 0;
    int controlled = 0;
    for (int i = 0; i < kPositions; ++i) {
        const Game game = RandomPosition(dice);
        EXPECT_EQ(ListDestinations(game), ChoiceMap{});
        ForEachSquare([&](Square square) {
            const Choice choice = JudgeChoice(game, square);
            const PickVerdict verdict = JudgePick(game, square);
            ASSERT_EQ(choice != Choice::None, verdict.refusal == PickRefusal::None);
            const bool ownPiece = verdict.piece != 0 && game.Piece(verdict.piece).Side == game.Turn;
            ASSERT_EQ(choice == Choice::PickOwn, ownPiece);
            own += choice == Choice::PickOwn ? 1 : 0;
            controlled += choice == Choice::PickControlled ? 1 : 0;
        });
    }
    EXPECT_GT(own, kPositions);
    EXPECT_GT(controlled, kPositions / 10);
}

TEST(Choices, OfPlacingAreTheMovesThatAreJudgedLegal) {
    Dice dice(12);
    int moves = 0;
    int captures = 0;
    int winning = 0;
    for (int i = 0; i < kPositions; ++i) {
        const Game game = WithPickedPiece(RandomPosition(dice), dice);
        if (game.GameState != kPlacePiece)
            continue;
        const ChoiceMap choices = ListDestinations(game);
        ForEachSquare([&](Square square) {
            const Choice choice = On(choices, square);
            if (game.Piece(game.CurPiece).StandsOn(square)) {
                ASSERT_EQ(choice, Choice::None) << "a click there puts it down";
                return;
            }
            const Verdict verdict = JudgeMove(game, game.CurPiece, square);
            ASSERT_EQ(choice != Choice::None, verdict.refusal == Refusal::None);
            ASSERT_EQ(IsTaking(choice), verdict.captured != 0);
            const bool wins =
                IsTaking(choice) && Winner(game, game.CurPiece, square, verdict.captured) == game.Turn;
            ASSERT_EQ(choice == Choice::WinningCapture, wins);
            moves += choice == Choice::Move ? 1 : 0;
            captures += choice == Choice::Capture ? 1 : 0;
            winning += choice == Choice::WinningCapture ? 1 : 0;
        });
    }
    EXPECT_GT(moves, kPositions);
    EXPECT_GT(captures, kPositions / 10);
    EXPECT_GT(winning, 20);
}

TEST(HasMove, IsWhetherAnyTurnIsListed) {
    Dice dice(13);
    int without = 0;
    for (int i = 0; i < kPositions; ++i) {
        Game game = RandomPosition(dice);
        if (i % 2 == 0) // few pieces that can go nowhere are found by chance
            for (int piece = 1; piece <= kPieces; ++piece)
                if (game.Piece(piece).Side == game.Turn)
                    game.Piece(piece).MaxMove = 0;
        ASSERT_EQ(HasMove(game), !ListTurns(game).empty());
        without += HasMove(game) ? 0 : 1;
    }
    EXPECT_GT(without, 20);
}

TEST(Choices, OfReturningAreTheFreeSquares) {
    TestGame g("turn B|BM 4D|RO 4C|BP 1H|jail BP");
    g.Move("4D", "4C");
    ASSERT_EQ(g.game.GameState, kReturnPiece);
    const ChoiceMap choices = ListDestinations(g.game);
    ForEachSquare([&](Square square) {
        EXPECT_EQ(On(choices, square) == Choice::Return, PieceOn(g.game, square) == 0);
    });
    EXPECT_EQ(JailSlotToReturn(g.game), g.game.Return.ReturnSlot);
    EXPECT_EQ(JailSlotToReturn(g.game), 1);
    g.Click("8A");
    EXPECT_EQ(JailSlotToReturn(g.game), 0);
    EXPECT_EQ(ListDestinations(g.game), ChoiceMap{});
}

TEST(Choices, OfAReturnThatIsNotDecidedAreNone) {
    TestGame g("turn B|BM 4D|jail BP");
    g.game.GameState = kReturnPiece;
    EXPECT_EQ(ListDestinations(g.game), ChoiceMap{});
    EXPECT_EQ(JailSlotToReturn(g.game), 0);
}

TEST(Choices, InTheOtherStatesAreNone) {
    TestGame g("turn B|BM 4D|RM 4C|BP 1H");
    for (const std::int16_t state : {kReset, kAllowReturn, kTurnOver, kGetBoard, kBoardArrived, kGameOver}) {
        g.game.GameState = state;
        EXPECT_EQ(ListDestinations(g.game), ChoiceMap{}) << state;
        EXPECT_EQ(JudgeChoice(g.game, {4, 4}), Choice::None) << state;
    }
}

TEST(Choices, ACaptureThatLosesTheGameIsAnOrdinaryOne) {
    TestGame g("turn B|BM 4D|BP 4C|RP 8H|jail BO BO BO BO BP BP BP BP BP");
    g.Click("4D");
    ASSERT_EQ(g.game.GameState, kPlacePiece);
    EXPECT_EQ(JudgeChoice(g.game, {4, 3}), Choice::Capture);
}

} // namespace tarveth::test
