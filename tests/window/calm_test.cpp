// The program at rest, and what comes in the middle of a moving piece.

#include "tests/window/GameDesk.h"

#include <gtest/gtest.h>

namespace tarveth::harness {
namespace {

// Without a bar above the board, so that the board is always where it was.
constexpr const char* kMoving = "[Options]\r\nAnimateMoves=-1\r\nHistory=-1\r\n[Game]\r\nKeepAside=0\r\n";

// The longest move of a new game: a Master's.
constexpr const char* kFrom = "4H";
constexpr const char* kTo = "1H";
constexpr const char* kMoved = "B:BM 4H-1H";

class MovingPiece : public testing::Test {
protected:
    // Sends a piece on its way and does not wait for it.
    void SendOff() {
        desk.ClickSquare(kFrom);
        ASSERT_TRUE(desk.PromptBecomes("Place piece"));
        ASSERT_TRUE(WaitUntil([&] { return desk.screen.Capture(desk.SquareArea(kFrom)) == picked; }));
        desk.ClickSquare(kTo);
    }

    // Sends it off and returns once the piece is seen on its way.
    void SendOffAndSee() {
        ASSERT_NO_FATAL_FAILURE(SendOff());
        const Rect left = desk.SquareArea(kFrom);
        ASSERT_TRUE(WaitUntil([&] { return !(desk.screen.Capture(left) == picked); }));
    }

    GameFolder folder{kMoving};
    GameDesk desk{folder};
    // Sends it off and stops the program while the piece is still in the first half of its way. False when
    // the piece has come further, as it may when the machine is busy and this test sleeps too long; the
    // program runs on then.
    bool StopOnTheWay() {
        SendOffAndSee();
        if (HasFatalFailure())
            return false;
        desk.program.Stop();
        const bool onTheWay = LastTwoSquares() == untouched;
        if (!onTheWay)
            desk.program.Continue();
        return onTheWay;
    }

    void BeginAgain() {
        ASSERT_TRUE(desk.TextBecomes("lblCurPlayer", "Red"));
        desk.Choose("F", "n");
        ASSERT_TRUE(desk.TextBecomes("lblCurPlayer", "Blue"));
        desk.WaitUntilAtRest();
    }

    Picture start = desk.Board();
    Picture untouched = LastTwoSquares();
    Picture picked = PickedPiece(); // kFrom while its piece is picked

private:
    // Those of the way's three squares that the piece reaches after a third of its ticks.
    Picture LastTwoSquares() {
        const Rect last = desk.SquareArea(kTo);
        return desk.screen.Capture({last.x, last.y, 2 * last.width, last.height});
    }
    Picture PickedPiece() {
        desk.ClickSquare(kFrom);
        EXPECT_TRUE(desk.PromptBecomes("Place piece"));
        desk.WaitUntilAtRest();
        Picture square = desk.screen.Capture(desk.SquareArea(kFrom));
        desk.ClickSquare(kFrom);
        EXPECT_TRUE(desk.PromptBecomes("Pick piece"));
        return square;
    }
};

// At rest no timer runs and nothing is polled. Two limits say so, and neither depends on what else the
// machine does:
// - fewer than one wake-up a second, which any timer or poll would exceed. The toolkit ends threads that it
// no longer
//   needs, and the window manager may have something to tell.
// - a tenth of a millisecond of processor time a second, several times what those few wake-ups take, also
// when other
//   programs have filled the processor's caches.
// Nobody reads its screen and no history is shown: the toolkit forgets what a reader was told, and the
// picture of a list's rows, when some time has gone by.
TEST(AtRest, TheProgramUsesNoProcessor) {
    using namespace std::chrono_literals;
    constexpr int kSeconds = 20;
    const GameFolder folder("[Options]\r\nAnimateMoves=-1\r\nAutoSaveLog=-1\r\n");
    GameDesk desk(folder, {.environment = {{"NO_AT_BRIDGE", "1"}}});
    for (const char* key : {"Up", "Return", "Up", "Return"}) // shows the cursor on 4E; to 4D
        desk.screen.Key(key);
    desk.Choose("F", "n");
    ASSERT_TRUE(WaitUntil([&] { return folder.Read("lastgame.log") == "B:BP 4E-4D\r\n"; }));
    // The window manager and the toolkit go on a little about the menu that has closed.
    ASSERT_TRUE(WaitUntil([&] {
        const auto switches = desk.program.Usage().voluntarySwitches;
        std::this_thread::sleep_for(1s);
        return desk.program.Usage().voluntarySwitches == switches;
    }));
    const ProcessUsage before = desk.program.Usage();
    std::this_thread::sleep_for(kSeconds * 1s);
    const ProcessUsage after = desk.program.Usage();
    EXPECT_LT(WakeUpsBetween(before, after), kSeconds);
    EXPECT_LT(after.cpuTime - before.cpuTime, kSeconds * 100us);
    EXPECT_TRUE(desk.program.Alive());
}

TEST(InAHurry, KeysWithNoTimeBetweenThemAreAllPlayed) {
    const GameFolder folder("[Options]\r\nAnimateMoves=0\r\nHistory=-1\r\n");
    GameDesk desk(folder);
    for (const char* key : {"Up", "Return", "Up", "Return",      // shows the cursor on 4E; to 4D
                            "Right", "Return", "Down", "Return", // 5D to 5E
                            "Left", "Left", "Down", "Return", "Up", "Return"}) // 3F to 3E
        desk.screen.Key(key);
    const std::vector<std::string> moves = {"B:BP 4E-4D", "R:RP 5D-5E", "B:BP 3F-3E"};
    EXPECT_TRUE(WaitUntil([&] { return desk.History() == moves; })) << testing::PrintToString(desk.History());
}

TEST_F(MovingPiece, ArrivesBeforeANewGameBegins) {
    for (int turn = 0; turn < 3; ++turn) {
        ASSERT_NO_FATAL_FAILURE(SendOff());
        desk.Choose("F", "n");
        EXPECT_TRUE(desk.TextBecomes("lblCurPlayer", "Blue"));
        EXPECT_TRUE(WaitUntil([&] { return desk.Board() == start; }));
        EXPECT_TRUE(desk.History().empty());
    }
    desk.Move("6E", "6D");
    EXPECT_TRUE(desk.TextBecomes("lblCurPlayer", "Red")) << "and the game goes on as ever";
}

TEST_F(MovingPiece, IsFollowedByANewGameOnceItIsOnItsWay) {
    ASSERT_NO_FATAL_FAILURE(SendOffAndSee());
    desk.Choose("F", "n");
    EXPECT_TRUE(WaitUntil([&] { return desk.Board() == start; }));
    EXPECT_EQ(desk.Text("lblCurPlayer"), "Blue");
}

TEST_F(MovingPiece, IsNoReasonNotToClose) {
    ASSERT_NO_FATAL_FAILURE(SendOffAndSee());
    EXPECT_EQ(desk.Close(), 0);
    EXPECT_EQ(desk.program.Output(), "");
    EXPECT_TRUE(folder.Has("tarveth.ini"));
    GameDesk again(folder);
    EXPECT_TRUE(again.Board() == start);
}

// The click is made while the program is stopped with the piece on its way, so it waits for the program
// before the piece can arrive. Only bringing the program to that point may take several tries; the click is
// judged once.
TEST_F(MovingPiece, LeavesClicksUnheard) {
    constexpr int kTries = 50;
    for (int tries = 1; !StopOnTheWay(); ++tries) {
        ASSERT_FALSE(HasFatalFailure());
        ASSERT_LT(tries, kTries) << "the piece was never seen on its way";
        ASSERT_NO_FATAL_FAILURE(BeginAgain());
    }
    desk.ClickSquare("3D"); // a Red Pawn, which the next player could pick
    std::this_thread::sleep_for(std::chrono::milliseconds(200)); // the window manager hands the click on
    desk.program.Continue();
    ASSERT_TRUE(desk.TextBecomes("lblCurPlayer", "Red"));
    desk.WaitUntilAtRest();
    EXPECT_EQ(desk.Text("lblMoveStatus"), "Pick piece");
    EXPECT_EQ(desk.History(), std::vector<std::string>{kMoved});

    desk.ClickSquare("3D");
    EXPECT_TRUE(desk.PromptBecomes("Place piece")) << "the same click is heard once the piece has arrived";
}

TEST_F(MovingPiece, StandsAfterwardsWhereAStillOneWould) {
    desk.Move(kFrom, kTo);
    ASSERT_TRUE(desk.TextBecomes("lblCurPlayer", "Red"));
    const Picture moved = desk.Board();
    EXPECT_EQ(desk.Close(), 0);

    const GameFolder stillFolder("[Options]\r\nAnimateMoves=0\r\nHistory=-1\r\n");
    GameDesk still(stillFolder);
    still.Move(kFrom, kTo);
    ASSERT_TRUE(still.TextBecomes("lblCurPlayer", "Red"));
    EXPECT_TRUE(still.Board() == moved);
}

} // namespace
} // namespace tarveth::harness
