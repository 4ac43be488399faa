// The computer as a player at this screen: when it moves, what it leaves to the user, and what ends it.
#include "play/ComputerOpponent.h"

#include "engine/rules/checkgame.h"
#include "engine/rules/positiontext.h"
#include "engine/rules/turns.h"
#include "tests/PickTurn.h"
#include "tests/RecordingPort.h"
#include "tests/play/WindowThread.h"

#include <gtest/gtest.h>

#include <thread>

namespace tarveth::test {
namespace {

struct Screen {
    Game game;
    NetGame net;
    GameOptions options;
    RecordingPort port;
    WindowThread thread;
    modMAIN main{game, net, options, Ports{port, port, port, port, port}};
    ComputerOpponent computer{game, net, main, port,
                              [this](std::function<void()> work) { thread.RunSoon(std::move(work)); }};

    explicit Screen(std::int16_t boardVariant = kImperialBoard) {
        port.game = &game;
        options.BoardVariant = boardVariant;
        computer.LeastTime = {};
        computer.SetLevel(1);
        main.NewGame();
    }

    // As the window does after every event.
    void RunPasses() {
        while (main.RunPasses()) {
        }
        computer.Follow();
    }

    void Set(const std::string& position) {
        Game other = game;
        SetPosition(other, position);
        main.SetUpPosition(other, PositionSource::File);
        RunPasses();
    }

    void Click(Square square) {
        main.DepositSquare(square);
        RunPasses();
    }

    void LetItMove() {
        ASSERT_TRUE(computer.Thinks());
        thread.RunNext();
        RunPasses();
    }
};

class AgainstTheComputer : public testing::TestWithParam<std::int16_t> {};
INSTANTIATE_TEST_SUITE_P(Boards, AgainstTheComputer, testing::Values(kImperialBoard, kDraumeCrownBoard));

TEST_P(AgainstTheComputer, TurnsAlternateAndAreAllLegal) {
    constexpr int kTurns = 60;
    Screen s(GetParam());
    s.computer.PlaySide(Red);
    Dice dice(20261122);
    for (int number = 0; number < kTurns && s.game.GameState != kGameOver; ++number) {
        ASSERT_EQ(s.game.Turn, number % 2 == 0 ? Blue : Red);
        const Game before = s.game;
        if (s.game.Turn == Red) {
            s.LetItMove();
        } else {
            const CompleteTurn turn = PickTurn(s.game, dice);
            s.port.returnChoice = turn.returnKind == Officer ? Officer : Pawn;
            for (const Square square : {turn.from, turn.to, turn.returnTo})
                if (square.OnBoard())
                    s.Click(square);
        }
        ASSERT_NE(s.game.PieceTable, before.PieceTable);
        ASSERT_EQ(CheckGame(s.game), "");
        ASSERT_GT(s.game.lstHistory.size(), before.lstHistory.size());
    }
    EXPECT_GE(s.game.lstHistory.size(), 10U);
}

TEST(ComputerOpponent, RefusesTheUsersClicksInItsTurn) {
    Screen s;
    s.computer.PlaySide(Blue);
    s.RunPasses();
    s.Click(SquareOf("4E"));
    EXPECT_EQ(s.port.message, "Not your turn.");
    EXPECT_EQ(s.game.GameState, kPickPiece);
    s.LetItMove();
    EXPECT_EQ(s.game.Turn, Red);
    EXPECT_FALSE(s.computer.Thinks());
}

TEST(ComputerOpponent, ChoosesItsReturningPieceItself) {
    Screen s;
    s.computer.SetLevel(5);
    s.computer.PlaySide(Blue);
    s.Set("turn B|BM 1A|BO 4D|RM 4E|RM 8H|RO 8A|jail BP BO");
    s.LetItMove();
    EXPECT_EQ(s.port.returnQuestions, 0);
    EXPECT_EQ(s.game.lstHistory.size(), 2U) << "the capture and the return";
    EXPECT_EQ(s.game.Turn, Red);
}

TEST(ComputerOpponent, PlaysNothingOfAGameThatHasBeenReplaced) {
    Screen s;
    s.computer.PlaySide(Blue);
    s.RunPasses();
    ASSERT_TRUE(s.computer.Thinks());
    s.Set("turn R|BM 1A|BO 1B|BP 1C|RM 8H|RO 8A|RP 4E");
    EXPECT_FALSE(s.computer.Thinks());
    EXPECT_EQ(s.game.Turn, Red);
    EXPECT_TRUE(s.game.lstHistory.empty());
}

TEST(ComputerOpponent, BeginsAgainInTheNextGame) {
    Screen s;
    s.computer.PlaySide(Blue);
    s.RunPasses();
    s.LetItMove();
    s.main.NewGame();
    s.RunPasses();
    s.LetItMove();
    EXPECT_EQ(s.game.Turn, Red);
    EXPECT_EQ(s.game.lstHistory.size(), 1U);
}

TEST(ComputerOpponent, MovesOnceForTheUser) {
    Screen s;
    s.RunPasses();
    EXPECT_FALSE(s.computer.Thinks()) << "it has not been asked to play";
    s.main.RunCommand([&] { s.computer.MoveNow(); });
    s.RunPasses();
    s.LetItMove();
    EXPECT_EQ(s.game.Turn, Red);
    EXPECT_FALSE(s.computer.PlaysAnySide());
    EXPECT_FALSE(s.computer.Thinks());
}

TEST(ComputerOpponent, MovesAtOnceWhenItIsToldTo) {
    Screen s;
    s.computer.SetLevel(7);
    s.computer.LeastTime = std::chrono::hours(1);
    s.computer.PlaySide(Blue);
    s.RunPasses();
    s.main.RunCommand([&] { s.computer.MoveNow(); });
    s.LetItMove();
    if (s.computer.Thinks()) // it had not found a turn yet
        s.computer.StopThinking();
    else
        EXPECT_EQ(s.game.Turn, Red);
}

TEST(ComputerOpponent, StopsInTheMiddleOfItsThought) {
    Screen s;
    s.computer.LeastTime = std::chrono::hours(1);
    s.computer.PlaySide(Blue);
    s.RunPasses();
    ASSERT_TRUE(s.computer.Thinks());
    s.main.RunCommand([&] { s.computer.StopPlaying(); });
    s.RunPasses();
    EXPECT_FALSE(s.computer.Thinks());
    s.Click(SquareOf("4E"));
    EXPECT_EQ(s.game.GameState, kPlacePiece) << "the user plays both sides again";
}

TEST(ComputerOpponent, StopsAtAnyMomentOfItsThought) {
    constexpr int kStops = 100;
    Screen s;
    for (int number = 0; number < kStops; ++number) {
        s.computer.LeastTime = std::chrono::hours(number % 2);
        s.computer.PlaySide(Blue);
        s.RunPasses();
        ASSERT_TRUE(s.computer.Thinks());
        std::this_thread::sleep_for(std::chrono::microseconds(number * 30));
        s.main.RunCommand([&] { s.computer.StopPlaying(); });
        s.RunPasses();
        ASSERT_FALSE(s.computer.Thinks());
    }
}

TEST(ComputerOpponent, PlaysNoNetworkGame) {
    Screen s;
    s.computer.PlaySide(Blue);
    s.RunPasses();
    s.net.NetConnected = s.net.InGame = true;
    s.RunPasses();
    EXPECT_FALSE(s.computer.Thinks());
    EXPECT_FALSE(s.computer.PlaysAnySide());
}

TEST(ComputerOpponent, SaysThatItsSideHasNoMove) {
    Screen s;
    s.computer.PlaySide(Blue);
    s.Set("turn B|RM 8H|RP 1A|jail BM BM");
    ASSERT_TRUE(ListTurns(s.game).empty());
    s.LetItMove();
    EXPECT_EQ(s.port.message, "Blue has no move. The computer plays no longer.");
    EXPECT_FALSE(s.computer.PlaysAnySide());
}

TEST(ComputerOpponent, WinsAreHeardFromTheUsersSide) {
    Screen s;
    s.computer.SetLevel(5);
    s.computer.PlaySide(Red);
    s.Set("turn R|BM 4D|BO 1A|RM 4E|RO 8A|RP 4F|jail BM BM");
    s.LetItMove();
    EXPECT_EQ(s.game.GameState, kGameOver);
    EXPECT_EQ(s.port.gameEndSounds, std::vector<bool>{false});
}

} // namespace
} // namespace tarveth::test
