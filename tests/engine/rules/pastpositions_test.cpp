// The positions that a game has gone through, against copies of the game that were made when it was there.
#include "engine/rules/pastpositions.h"

#include "engine/rules/Game.h"
#include "engine/rules/atrest.h"
#include "engine/rules/turns.h"
#include "tests/PickTurn.h"
#include "tests/TestGame.h"

#include <gtest/gtest.h>

#include <map>
#include <stdexcept>

namespace tarveth::test {

namespace {

constexpr std::size_t kMebibyte = std::size_t{1024} * 1024;

// A game that is played at random, with the positions it has gone through and whole copies of them.
struct PlayedGame {
    explicit PlayedGame(std::uint64_t seed) : dice(seed) { Keep(); }

    void PlayTurn() {
        const CompleteTurn turn = PickTurn(table.game, dice);
        table.port.returnChoice = turn.returnKind == Officer ? Officer : Pawn;
        Click(turn.from);
        Click(turn.to);
        if (table.game.GameState == kReturnPiece)
            Click(turn.returnTo);
        Keep();
    }
    void PlayTurns(int most) {
        for (int turn = 0; turn < most && table.game.GameState != kGameOver; ++turn)
            PlayTurn();
    }

    TestGame table;
    Dice dice;
    PastPositions positions;
    std::map<std::size_t, Game> copies; // by number of lines

private:
    void Click(Square square) {
        table.main.DepositSquare(square);
        table.Settle();
    }
    void Keep() {
        positions.Set(table.game.lstHistory.size(), table.game);
        copies[table.game.lstHistory.size()] = AtRest(table.game);
    }
};

} // namespace

TEST(PastPositions, GiveEveryGameAsItWas) {
    for (std::uint64_t seed = 1; seed <= 20; ++seed) {
        PlayedGame played(seed);
        played.PlayTurns(300);
        EXPECT_GT(played.copies.size(), 20U);
        for (const auto& [lines, copy] : played.copies)
            EXPECT_EQ(played.positions.At(lines, played.table.game), copy) << "behind line " << lines;
    }
}

TEST(PastPositions, KnowNoneBetweenACaptureAndTheReturnItEarns) {
    PlayedGame played(3);
    played.PlayTurns(300);
    std::size_t between = 0;
    for (std::size_t lines = 0; lines <= played.table.game.lstHistory.size(); ++lines) {
        EXPECT_EQ(played.positions.Knows(lines), played.copies.contains(lines));
        between += played.copies.contains(lines) ? 0U : 1U;
    }
    EXPECT_GT(between, 0U);
}

TEST(PastPositions, GiveTheGameInTheMiddleOfALaterTurnToo) {
    TestGame t("turn B | BM 4D | BP 1A | RM 8H | RP 7H");
    PastPositions positions;
    positions.Set(0, t.game);
    const Game before = t.game;
    t.Move("4D", "4C");
    t.Click("8H");
    ASSERT_EQ(t.game.GameState, kPlacePiece);
    EXPECT_EQ(positions.At(0, t.game), before);
}

TEST(PastPositions, RememberWhereTheRuleOfReflectionBarsAPieceFrom) {
    TestGame t("turn B | BM 4D<4E | RM 8H | RP 7H");
    PastPositions positions;
    positions.Set(0, t.game);
    t.Move("4D", "4C");
    TestGame again;
    again.game = positions.At(0, t.game);
    again.Move("4D", "4E");
    EXPECT_EQ(again.port.message, "Illegal move (Rule of Reflection).");
}

TEST(PastPositions, KeepTheOrderOfTheJail) {
    TestGame t("turn B | BM 4D | RM 8H | jail RP BO BP RP");
    PastPositions positions;
    positions.Set(0, t.game);
    Game later = t.game;
    later.JailTable.resize(1);
    EXPECT_EQ(positions.At(0, later).JailTable, t.game.JailTable);
}

TEST(PastPositions, MayBeUnknownInAnyPart) {
    TestGame t;
    t.game.lstHistory.assign(10, "B:BP 4E-4D");
    PastPositions positions;
    positions.Set(10, t.game);
    positions.Set(4, t.game);
    EXPECT_TRUE(positions.Knows(4));
    EXPECT_TRUE(positions.Knows(10));
    for (const std::size_t lines : {0U, 3U, 5U, 9U, 11U}) {
        EXPECT_FALSE(positions.Knows(lines));
        EXPECT_THROW(positions.At(lines, t.game), std::out_of_range);
    }
    EXPECT_EQ(positions.At(4, t.game).lstHistory.size(), 4U);
}

TEST(PastPositions, NeedTheLinesThatLedToThem) {
    TestGame t;
    PastPositions positions;
    positions.Set(1, t.game);
    EXPECT_THROW(positions.At(1, t.game), std::out_of_range);
}

TEST(PastPositions, ForgetWhatIsCutOff) {
    TestGame t;
    t.game.lstHistory.assign(2, "B:BP 4E-4D");
    PastPositions positions;
    for (std::size_t lines = 0; lines <= 2; ++lines)
        positions.Set(lines, t.game);
    positions.CutTo(1);
    EXPECT_TRUE(positions.Knows(0));
    EXPECT_TRUE(positions.Knows(1));
    EXPECT_FALSE(positions.Knows(2));
    positions.Clear();
    EXPECT_FALSE(positions.Knows(0));
}

TEST(PastPositions, OfTwoThousandLinesTakeLessThanTwoMebibytes) {
    PastPositions positions;
    std::size_t lines = 0;
    for (std::uint64_t seed = 1; lines < 2000; ++seed) { // one game after the other, as one history
        PlayedGame played(seed);
        played.PlayTurns(200);
        for (const auto& [of, game] : played.copies)
            positions.Set(lines + of, game);
        lines += played.copies.rbegin()->first;
    }
    EXPECT_LE(positions.MemoryUse(), 2 * kMebibyte);
}

} // namespace tarveth::test
