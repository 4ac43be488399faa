// The turn state machine: what each state shows, what a pending square does in it, what an idle pass does.
#include "tests/TestGame.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace tarveth::test {
namespace {

TEST(GameStates, EachShowsItsPromptButATurnThatIsOverAndAnArrivedBoardLeaveItAsItIs) {
    TestGame g;
    const auto prompt = [&](std::int16_t state) {
        g.port.prompt = "as it was";
        g.main.SetGameState(state);
        EXPECT_EQ(g.game.GameState, state);
        return g.port.prompt;
    };
    EXPECT_EQ(prompt(kPickPiece), "Pick piece");
    EXPECT_EQ(prompt(kPlacePiece), "Place piece");
    EXPECT_EQ(prompt(kReturnPiece), "Return piece");
    EXPECT_EQ(prompt(kAllowReturn), "Allow Return");
    EXPECT_EQ(prompt(kTurnOver), "as it was");
    EXPECT_EQ(prompt(kGetBoard), "Get Board");
    EXPECT_EQ(prompt(kBoardArrived), "as it was");
    EXPECT_EQ(prompt(kGameOver), "Game Over");
}

TEST(GameStates, TheMarkerShowsOnlyWhileAPieceIsPlaced) {
    TestGame g;
    for (std::int16_t state = kPickPiece; state <= kGameOver; ++state) {
        g.port.marker = state != kPlacePiece;
        g.main.SetGameState(state);
        EXPECT_EQ(g.port.marker, state == kPlacePiece) << state;
    }
}

TEST(GameStates, ResetAndUnknownValuesAreOnlyStored) {
    TestGame g;
    g.port.prompt = "as it was";
    g.port.marker = true;
    for (const std::int16_t state : {kReset, std::int16_t{9}, std::int16_t{-1}}) {
        g.main.SetGameState(state);
        EXPECT_EQ(g.game.GameState, state);
    }
    EXPECT_EQ(g.port.prompt, "as it was");
    EXPECT_TRUE(g.port.marker);
}

// One row for each state: the states after an idle pass and after a pass with a pending square. The square is
// 1A, with a piece of the side to move on it; the selected piece is two squares away.
struct Transition {
    std::int16_t state;
    std::int16_t afterIdle;
    std::int16_t afterSquare;
};

class Transitions : public testing::TestWithParam<Transition> {
protected:
    // A Master has just been taken by the Master at 1C, and a Pawn is in the jail.
    TestGame g{"turn B | BO 1A | BM 1C | RM 8H | jail BP RM"};

    void SetUp() override {
        g.game.CurPiece = 1;
        g.game.Return.CapturedPiece = 15;
        g.game.Return.ReturnKind = Pawn;
        g.game.Return.ReturnSlot = 1;
        g.game.GameState = GetParam().state;
    }
};

TEST_P(Transitions, OfAnIdlePass) {
    EXPECT_EQ(g.main.Pass(), GetParam().afterIdle != kReset);
    EXPECT_EQ(g.game.GameState, GetParam().afterIdle);
}

TEST_P(Transitions, OfAPassWithASquarePending) {
    g.game.ClickX = g.game.ClickY = 1;
    const Game before = g.game;
    EXPECT_EQ(g.main.Pass(), GetParam().afterSquare != kReset);
    EXPECT_EQ(g.game.GameState, GetParam().afterSquare);
    EXPECT_EQ(g.game.ClickX, 0);
    EXPECT_EQ(g.game.ClickY, 0);
    if (GetParam().state >= kAllowReturn) {
        EXPECT_EQ(g.game.PieceTable, before.PieceTable);
        EXPECT_EQ(g.game.JailTable, before.JailTable);
        EXPECT_EQ(g.game.lstHistory, before.lstHistory);
    }
}

// To place a piece, the Master takes its own Officer. To return one, the square is not free. When a board has
// arrived, the pass first goes on to kPickPiece, which then takes the square.
INSTANTIATE_TEST_SUITE_P(GameStates, Transitions,
                         testing::Values(Transition{kReset, kReset, kReset},
                                         Transition{kPickPiece, kPickPiece, kPlacePiece},
                                         Transition{kPlacePiece, kPlacePiece, kAllowReturn},
                                         Transition{kReturnPiece, kReturnPiece, kReturnPiece},
                                         Transition{kAllowReturn, kReturnPiece, kAllowReturn},
                                         Transition{kTurnOver, kPickPiece, kTurnOver},
                                         Transition{kGetBoard, kGetBoard, kGetBoard},
                                         Transition{kBoardArrived, kPickPiece, kPlacePiece},
                                         Transition{kGameOver, kGameOver, kGameOver}),
                         [](const auto& row) { return "State" + std::to_string(row.param.state); });

TEST(MainLoop, TheFirstPassAfterANewGameGoesOn) {
    TestGame g;
    EXPECT_TRUE(g.main.Pass());
    EXPECT_EQ(g.game.GameState, kPickPiece);
}

TEST(MainLoop, AResetEndsIt) {
    TestGame g;
    CreatePieces(g.game);
    EXPECT_FALSE(g.main.Pass());
    g.main.RunPasses();
    EXPECT_EQ(g.game.GameState, kReset);
}

TEST(MainLoop, AResetReportsNoVictory) {
    TestGame g("turn B | jail RM RM RM");
    g.game.GameState = kReset;
    EXPECT_FALSE(g.main.Pass());
    EXPECT_EQ(g.game.GameState, kReset);
    EXPECT_TRUE(g.port.gameEndSounds.empty());
}

TEST(MainLoop, NoVictoryIsLookedForWhileTheBoardArrives) {
    TestGame g("turn B | jail RM RM RM");
    g.game.GameState = kGetBoard;
    g.main.Pass();
    EXPECT_EQ(g.game.GameState, kGetBoard);
    g.game.GameState = kBoardArrived;
    g.main.Pass();
    EXPECT_EQ(g.game.GameState, kGameOver);
}

TEST(MainLoop, WaitingForTheBoardSaysSo) {
    TestGame g;
    g.game.GameState = kGetBoard;
    g.game.ClickX = g.game.ClickY = 1;
    g.main.Pass();
    EXPECT_EQ(g.port.message, "Getting updated board information.");
    EXPECT_EQ(g.port.beeps, 0);
}

TEST(MainLoop, AnArrivedBoardIsDrawnAndPlayMayCommence) {
    TestGame g;
    g.game.GameState = kBoardArrived;
    const int redraws = g.port.redraws;
    g.main.RunPasses();
    EXPECT_EQ(g.game.GameState, kPickPiece);
    EXPECT_EQ(g.port.redraws, redraws + 1);
    EXPECT_EQ(g.port.prompt, "Pick piece");
    EXPECT_EQ(g.port.message, "Play may commence.");
}

TEST(MainLoop, AClickAfterTheEndOfTheGameDoesNothingAndIsCleared) {
    TestGame g("turn B | BM 4D | jail RM RM RM");
    g.main.RunPasses();
    ASSERT_EQ(g.game.GameState, kGameOver);
    const Game before = g.game;
    g.game.ClickX = g.game.ClickY = 4;
    g.main.RunPasses();
    EXPECT_EQ(g.game, before);
}

TEST(MainLoop, TheEndOfTheGameLastsUntilTheNextNewGame) {
    TestGame g("turn B | BM 4D | jail RM RM RM");
    g.main.RunPasses();
    g.Move("4D", "4E");
    EXPECT_EQ(g.game.GameState, kGameOver);
    g.main.NewGame();
    g.main.RunPasses();
    EXPECT_EQ(g.game.GameState, kPickPiece);
    EXPECT_EQ(g.game.VictoryText, "");
}

TEST(MainLoop, AWholeTurnPassesThroughItsStates) {
    TestGame g("turn B | BM 4D | RO 4E | RM 8H | jail BP");
    g.ClickOnePass("4D");
    EXPECT_EQ(g.game.GameState, kPlacePiece);
    g.ClickOnePass("4E");
    EXPECT_EQ(g.game.GameState, kAllowReturn);
    g.main.Pass();
    EXPECT_EQ(g.game.GameState, kReturnPiece);
    g.ClickOnePass("1A");
    EXPECT_EQ(g.game.GameState, kTurnOver);
    g.main.Pass();
    EXPECT_EQ(g.game.GameState, kPickPiece);
    EXPECT_EQ(g.game.Turn, Red);
}

TEST(MainLoop, AtRestThereIsNothingToDo) {
    TestGame g;
    EXPECT_FALSE(g.main.HasWork());
    for (const std::int16_t state : {kAllowReturn, kTurnOver, kBoardArrived}) {
        g.game.GameState = state;
        EXPECT_TRUE(g.main.HasWork()) << state;
    }
    for (const std::int16_t state : {kPickPiece, kPlacePiece, kGetBoard, kGameOver}) {
        g.game.GameState = state;
        EXPECT_FALSE(g.main.HasWork()) << state;
    }
    g.game.ClickX = g.game.ClickY = 1;
    EXPECT_TRUE(g.main.HasWork());
    g.game.ClearClick();
    g.net.RemoteX = TextQueue("1|");
    EXPECT_TRUE(g.main.HasWork());
}

TEST(Turns, ChangeSidesAfterARedraw) {
    TestGame g;
    g.port.calls.clear();
    g.main.EndTurn();
    EXPECT_EQ(g.game.Turn, Red);
    EXPECT_EQ(g.port.calls, (std::vector<std::string>{"redraw", "player Red"}));
    g.main.EndTurn();
    EXPECT_EQ(g.game.Turn, Blue);
}

TEST(Turns, TheFirstOneGoesToBlueWithoutARedraw) {
    TestGame g;
    CreatePieces(g.game);
    g.port.calls.clear();
    g.main.EndTurn();
    EXPECT_EQ(g.game.Turn, Blue);
    EXPECT_EQ(g.port.calls, std::vector<std::string>{"player Blue"});
}

TEST(Turns, ShowTheSideInItsColourAndAskForAPiece) {
    TestGame g;
    g.game.GameState = kTurnOver;
    g.main.SetTurn(Red);
    EXPECT_EQ(g.port.player, "Red");
    EXPECT_EQ(g.port.playerColour, 0x0000FFU); // red in the low byte
    EXPECT_EQ(g.game.GameState, kPickPiece);
    g.main.SetTurn(Blue);
    EXPECT_EQ(g.port.player, "Blue");
    EXPECT_EQ(g.port.playerColour, 0xFF0000U);
}

TEST(Turns, AStatusIsShownWithABeep) {
    TestGame g;
    g.main.ShowStatus("text");
    EXPECT_EQ(g.port.message, "text");
    EXPECT_EQ(g.port.beeps, 1);
}

// In a game without pieces a pass may only end the turn or begin play, as its state requires; the rest of the
// game must stay as it was.
TEST(Robustness, PassesOverAnEmptyGameEndTheTurnThatIsDueAndChangeNothingElse) {
    for (std::int16_t state = kReset; state <= kGameOver + 1; ++state) {
        if (state == kPlacePiece) // no piece is ever selected without pieces
            continue;
        TestGame g;
        g.game = Game{};
        g.game.GameState = state;
        Game expected = g.game;
        if (state == kReturnPiece || state == kAllowReturn || state == kTurnOver)
            expected.Turn = Blue;
        if (expected.Turn == Blue || state == kBoardArrived)
            expected.GameState = kPickPiece;
        g.game.ClickX = g.game.ClickY = 4;
        g.main.RunPasses();
        EXPECT_EQ(g.game, expected) << state;
        EXPECT_EQ(g.port.beeps, 0) << state;
    }
}

} // namespace
} // namespace tarveth::test
