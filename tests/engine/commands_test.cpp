// Commands that replace the game, and everything that can arrive in the middle of a move.
#include "tests/TestGame.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <vector>

namespace tarveth::test {
namespace {

// Does to a game what AnimateMove does: sets the flags, and leaves a piece between two squares while it
// waits.
class Gliding {
public:
    Gliding(TestGame& g, int index) : g_(g), index_(index) {
        g_.game.Animating = true;
        g_.game.AnimatedPiece = static_cast<std::int16_t>(index);
        g_.game.Piece(index_).Y += Currency::FromRaw(2'500);
    }
    ~Gliding() {
        g_.game.Animating = false;
        g_.game.AnimatedPiece = 0;
    }
    Gliding(const Gliding&) = delete;
    Gliding& operator=(const Gliding&) = delete;

private:
    TestGame& g_;
    int index_;
};

TEST(Commands, RunAtOnceWhenNothingIsGoingOn) {
    TestGame g;
    bool ran = false;
    g.main.RunCommand([&] { ran = true; });
    EXPECT_TRUE(ran);
    EXPECT_EQ(g.port.finishedAnimations, 0);
}

TEST(Commands, NewGameInTheMiddleOfAnAnimationFinishesTheMoveFirst) {
    TestGame fresh;
    TestGame g("turn B | BM 4D | RM 8H");
    g.settings.AnimateMoves = -1;
    std::vector<std::string> historyAtNewGame;
    bool ranInside = false;
    g.port.onAnimate = [&] {
        const Gliding gliding(g, 1);
        g.main.RunCommand([&] {
            historyAtNewGame = g.game.lstHistory;
            g.main.NewGame();
            ranInside = g.game.Animating;
        });
        EXPECT_EQ(g.port.newRecords, 1) << "not yet";
    };
    g.Move("4D", "4F");
    EXPECT_EQ(g.port.finishedAnimations, 1);
    EXPECT_FALSE(ranInside);
    EXPECT_EQ(historyAtNewGame, std::vector<std::string>{"B:BM 4D-4F"}) << "the log has the whole move";
    EXPECT_EQ(g.game.PieceTable, fresh.game.PieceTable);
    EXPECT_EQ(g.game.JailTable, fresh.game.JailTable);
    EXPECT_EQ(g.game.Turn, Blue);
    EXPECT_EQ(g.game.GameState, kPickPiece);
    EXPECT_TRUE(g.game.lstHistory.empty());
}

TEST(Commands, NewGameInTheMiddleOfACaptureLeavesNobodyInTheJail) {
    TestGame fresh;
    TestGame g("turn B | BM 4D | RO 4F | RM 8H | jail BP");
    g.settings.AnimateMoves = -1;
    g.port.onAnimate = [&] {
        const Gliding gliding(g, 1);
        g.main.RunCommand([&] { g.main.NewGame(); });
    };
    g.Move("4D", "4F");
    EXPECT_EQ(g.game.PieceTable, fresh.game.PieceTable);
    EXPECT_EQ(g.game.JailTable, fresh.game.JailTable);
    EXPECT_EQ(g.game.GameState, kPickPiece);
    EXPECT_EQ(g.game.Return.CapturedPiece, 0);
}

TEST(Commands, NewGameWhileTheReturnIsBeingChosenWaitsForTheChoice) {
    TestGame fresh;
    TestGame g("turn B | BM 4D | RM 4E | RM 8H | jail BP BO");
    g.port.onChooseReturn = [&] {
        g.main.RunCommand([&] { g.main.NewGame(); });
        EXPECT_EQ(g.game.JailCount(), 3) << "not yet";
    };
    g.Move("4D", "4E");
    EXPECT_EQ(g.game.PieceTable, fresh.game.PieceTable);
    EXPECT_EQ(g.game.GameState, kPickPiece);
    g.Click("4E");
    EXPECT_EQ(g.game.GameState, kPlacePiece) << "play goes on from the new board";
}

TEST(Commands, ThatWaitRunInTheOrderTheyCame) {
    TestGame g("turn B | BM 4D | RM 8H");
    g.settings.AnimateMoves = -1;
    std::string order;
    g.port.onAnimate = [&] {
        g.main.RunCommand([&] {
            order += 'a';
            g.main.RunCommand([&] { order += 'c'; }); // from within a command: after those that wait
        });
        g.main.RunCommand([&] { order += 'b'; });
    };
    g.Move("4D", "4F");
    EXPECT_EQ(order, "abc");
    g.main.RunPasses();
    EXPECT_EQ(order, "abc") << "each once";
}

TEST(Commands, OneThatComesInTheMiddleOfAnotherWaitsForItsEnd) {
    TestGame g;
    std::string order;
    g.main.RunCommand([&] {
        g.main.RunCommand([&] { order += 'b'; });
        order += 'a';
    });
    EXPECT_EQ(order, "ab");
}

TEST(Commands, NoPassRunsAndNoSquareIsTakenInTheMiddleOfOne) {
    TestGame g("turn B | BM 4D | RM 8H");
    g.net.NetConnected = g.net.InGame = true;
    g.main.RunCommand([&] {
        g.net.RemoteX = g.net.RemoteY = TextQueue("4|");
        g.Click("4D");
        g.main.RunPasses();
        EXPECT_EQ(g.game.ClickX, 0);
        EXPECT_EQ(g.net.RemoteX.Text(), "4|");
    });
    EXPECT_EQ(g.game.GameState, kPickPiece);
    g.main.RunPasses();
    EXPECT_EQ(g.game.GameState, kPlacePiece) << "the opponent's square has waited";
}

TEST(Commands, OneThatThrowsLeavesTheNextOnesWaiting) {
    TestGame g;
    std::string order;
    EXPECT_THROW(g.main.RunCommand([&] {
        g.main.RunCommand([&] { order += 'b'; });
        throw std::runtime_error("a file");
    }),
                 std::runtime_error);
    g.main.RunPasses();
    g.main.RunCommand([&] { order += 'c'; });
    EXPECT_EQ(order, "bc");
}

TEST(Commands, AWaitingOneRunsEvenWhenTheMoveLeavesNoOtherWork) {
    TestGame g("turn B | BM 4D | RM 8H | jail RM RM");
    g.settings.AnimateMoves = -1;
    bool ran = false;
    g.port.onAnimate = [&] { g.main.RunCommand([&] { ran = true; }); };
    SetPosition(g.game, "turn B | BM 8F | RM 8H | jail RM RM");
    g.Move("8F", "8H");
    EXPECT_EQ(g.game.GameState, kGameOver);
    EXPECT_TRUE(ran);
}

TEST(Passes, NeverNest) {
    TestGame g("turn B | BM 4D | RM 8H | RO 1A");
    g.settings.AnimateMoves = -1;
    g.port.onAnimate = [&] {
        const Gliding gliding(g, 1);
        g.game.ClickX = g.game.ClickY = 1;
        g.main.RunPasses();
        EXPECT_EQ(g.game.ClickX, 1) << "no pass took the square";
        g.game.ClearClick();
    };
    g.Move("4D", "4F");
    EXPECT_EQ(g.On("4F"), 1);
    EXPECT_EQ(g.game.Turn, Red);
}

TEST(Passes, SquaresThatArriveDuringAnAnimationAreHandledAfterIt) {
    TestGame g("turn B | BM 4D | RM 8H");
    g.net.NetConnected = g.net.InGame = true;
    g.settings.AnimateMoves = -1;
    g.port.onAnimate = [&] {
        const Gliding gliding(g, 1);
        g.net.RemoteX = TextQueue("8|8|");
        g.net.RemoteY = TextQueue("8|7|");
        g.main.RunPasses();
        EXPECT_EQ(g.net.RemoteX.Text(), "8|8|");
        g.port.onAnimate = nullptr;
    };
    g.Move("4D", "4F");
    EXPECT_EQ(g.game.lstHistory, (std::vector<std::string>{"B:BM 4D-4F", "R:RM 8H-8G"}));
    EXPECT_EQ(g.game.Turn, Blue);
}

TEST(Passes, TheLinkMayEndDuringAnAnimation) {
    TestGame g("turn B | BM 4D | RM 4E | RM 8H | jail BP BO");
    g.net.NetConnected = g.net.InGame = true;
    g.net.PlayingBlue = false;
    g.settings.AnimateMoves = -1;
    g.port.onAnimate = [&] { g.net.InGame = false; };
    g.net.RemoteX = TextQueue("4|4|");
    g.net.RemoteY = TextQueue("4|5|");
    g.main.RunPasses();
    EXPECT_EQ(g.port.returnQuestions, 1);
    EXPECT_EQ(g.game.GameState, kReturnPiece);
    g.Click("1A");
    EXPECT_TRUE(g.port.sent.empty());
    EXPECT_EQ(g.game.Turn, Red);
}

TEST(Passes, RunAgainAfterOneThatThrew) {
    TestGame g("turn B | BM 4D | RM 8H");
    g.settings.AnimateMoves = -1;
    g.port.onAnimate = [] { throw std::runtime_error("from a window"); };
    g.Click("4D");
    EXPECT_THROW(g.Click("4F"), std::runtime_error);
    g.port.onAnimate = nullptr;
    bool ran = false;
    g.main.RunCommand([&] { ran = true; });
    EXPECT_TRUE(ran) << "no pass is thought to be running";
}

} // namespace
} // namespace tarveth::test
