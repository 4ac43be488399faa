// A server, or an opponent behind it, that says what no honest one would: the program stays whole and within
// bounds, the game on the board can be played on, and the user is told in few words.
#include "engine/rules/checkgame.h"
#include "tests/net/TestClient.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

namespace tarveth::test {
namespace {

constexpr std::size_t kPiece = std::size_t{64} * 1024; // what a socket hands over at once

// The text arrives as a socket would bring it.
void ReceiveInPieces(TestClient& c, std::string_view text) {
    for (std::size_t at = 0; at < text.size(); at += kPiece)
        c.Receive(text.substr(at, kPiece));
}

std::string Repeat(std::string_view text, int times) {
    std::string all;
    for (int i = 0; i < times; ++i)
        all += text;
    return all;
}

std::string FromBob(std::string_view inner) {
    return "\251play(Ann," + std::string(inner) + ")";
}

// The message with the number in the place of each "#".
std::string WithNumber(std::string_view message, std::string_view number) {
    std::string text;
    for (const char letter : message) {
        if (letter == '#')
            text += number;
        else
            text += letter;
    }
    return text;
}

// All that Bob's program would send of its board.
std::string BoardFromBob() {
    TestClient sender;
    sender.StartGame();
    sender.Sent();
    sender.main.RunCommand([&] { sender.main.NewGame(); });
    std::string board = sender.Sent();
    for (std::size_t at = 0; (at = board.find("play(Bob,", at)) != std::string::npos;)
        board.replace(at, 9, "play(Ann,");
    return board;
}

std::ptrdiff_t CountNotices(const TestClient& c) {
    return std::ranges::count_if(c.window.lines,
                                 [](const std::string& line) { return line.starts_with("notice|"); });
}

// A piece can be picked and put down again on the local board.
void ExpectPlayable(TestClient& c) {
    EXPECT_EQ(CheckGame(c.game), "");
    ASSERT_EQ(c.game.GameState, kPickPiece);
    for (int column = 1; column <= kBoardSize; ++column) {
        for (int row = 1; row <= kBoardSize; ++row) {
            const int piece = PieceOn(c.game, {column, row});
            if (piece == 0 || c.game.Piece(piece).Side != c.game.Turn)
                continue;
            c.main.DepositSquare({column, row});
            c.RunPasses();
            EXPECT_EQ(c.game.GameState, kPlacePiece);
            c.main.DepositSquare({column, row});
            c.RunPasses();
            EXPECT_EQ(c.game.GameState, kPickPiece);
            return;
        }
    }
    FAIL() << "the side to move has no piece";
}

TEST(HostileServer, LeavesAtEveryByteOfABoardAndTheGameThereWasGoesOn) {
    const std::string board = BoardFromBob();
    ASSERT_GT(board.size(), 1000U);
    for (std::size_t length = 0; length < board.size(); ++length) {
        TestClient c;
        c.StartGame();
        const auto before = c.game.PieceTable;
        c.Receive(std::string_view(board).substr(0, length));
        c.socket.TellClose();
        c.client.Close();
        c.RunPasses();
        ASSERT_EQ(c.game.PieceTable, before) << "after " << length << " bytes";
        ASSERT_FALSE(c.net.GameInProgress());
        ExpectPlayable(c);
        ASSERT_FALSE(testing::Test::HasFailure()) << "after " << length << " bytes";
    }
}

TEST(HostileServer, SendsNumbersOutOfRangeAndNothingChanges) {
    const char* const numbers[] = {"-9", "27", "32767", "-32768", "32768",      "99999999999999999999",
                                   "",   "x",  "1e9",   "x1",     "2147483648", "(1)"};
    const char* const messages[] = {"P(#,1,1,4,4,0,0,2,0,1,0)",
                                    "P(5,1,1,#,#,0,0,2,0,1,0)",
                                    "S(#,1,1,2,0,1,0)",
                                    "J(#,1,1,-4,-4,0,0,2,0,1,0)",
                                    "J(1,1,1,#,-4,0,0,2,0,1,0)",
                                    "R(#,#,14,1)",
                                    "R(4,4,#,1)",
                                    "R(4,4,14,#)",
                                    "M(#, #)",
                                    "M(99, -99)"};
    for (const char* number : numbers) {
        TestClient c;
        c.StartGame();
        const Game before = c.game;
        for (const char* message : messages)
            c.Receive(FromBob(WithNumber(message, number)));
        EXPECT_EQ(c.game, before) << number;
        EXPECT_GE(CountNotices(c), 7) << number;
    }
}

TEST(HostileServer, HandsTheMoveToASideThatDoesNotExist) {
    TestClient c;
    c.StartGame();
    for (const char* side : {"0", "3", "-1", "257", "x", ""})
        c.Receive(FromBob("T(" + std::string(side) + ")"));
    EXPECT_EQ(c.game.Turn, Blue);
}

TEST(HostileServer, FloodsWithInvitationsInAGameAndEachIsRefusedWithoutAQuestion) {
    TestClient c;
    c.StartGame();
    const std::string sent = c.Receive(Repeat("\251invite(Ann,Eve)", 1000));
    EXPECT_EQ(sent, Repeat("\251refuse(Eve, [Auto] Ann is in a game already.)", 1000));
    EXPECT_TRUE(c.window.questions.empty());
    EXPECT_EQ(c.client.OpponentNick(), "Bob");
}

TEST(HostileServer, FloodsWithInvitationsAndOneIsAskedAbout) {
    TestClient c;
    c.window.answers = {true};
    c.Receive(Repeat("\251invite(Ann,Eve)", 1000));
    EXPECT_EQ(c.window.questions.size(), 1U);
    EXPECT_EQ(c.client.OpponentNick(), "Eve");
}

TEST(HostileServer, NamesAHundredThousandUsersTwiceOver) {
    TestClient c;
    std::string names;
    for (int i = 0; i < 200'000; ++i)
        names += "\251addnick(user" + std::to_string(i) + ",0)";
    ReceiveInPieces(c, names);
    EXPECT_EQ(c.client.Users().Entries().size(), UserList::kMostEntries);
    EXPECT_EQ(CountNotices(c), 1);
    c.Receive("\251removenick(user0)");
    EXPECT_EQ(c.client.Users().Entries().front(), "user1");
}

TEST(HostileServer, BeginsAMessageThatNeverEnds) {
    TestClient c;
    ReceiveInPieces(c, "\251sys(" + Repeat("((((((((((", 1'000'000));
    EXPECT_EQ(CountNotices(c), 1);
    c.Lines();
    c.Receive("\251sys(Hello.)"); // a marker begins anew
    EXPECT_EQ(c.Lines(), Strings{"notice|Hello."});
}

TEST(HostileServer, SaysNonsenseInItsGreeting) {
    for (const char* version : {"", ".", "...", "x.y.z", "-1.-1.-1", "1", "0.0.0", "(1.0.37)", ",,,"}) {
        TestClient c;
        EXPECT_EQ(c.Receive("\251update(" + std::string(version) + ")"), "") << version;
        EXPECT_EQ(c.window.boxes.size(), 1U) << version;
        EXPECT_EQ(c.window.unloads, 1) << version;
    }
    for (const char* version : {"4.0.0", "99999.0.0", "1.0.99999999999", " 2 . 6 . 4 ", "3.x"}) {
        TestClient c;
        EXPECT_EQ(c.Receive("\251update(" + std::string(version) + ")"),
                  "\251clientver(2.6.4)\251nick(Ann)\251sendnicks()")
            << version;
    }
}

TEST(HostileServer, SendsMovesByTheThousandAndTheBoardStaysSound) {
    TestClient c;
    c.StartGame();
    std::mt19937 random(20'26);
    std::string moves;
    const auto number = [&] { return std::to_string(static_cast<int>(random() % 12) - 1); };
    for (int i = 0; i < 20'000; ++i)
        moves += FromBob("M(" + number() + ", " + number() + ")");
    ReceiveInPieces(c, moves);
    EXPECT_EQ(CheckGame(c.game), "");
    EXPECT_TRUE(c.net.RemoteX.IsEmpty());
}

TEST(HostileServer, EndsAGameThatIsNotOn) {
    TestClient c;
    c.Receive("\251end(Ann,Bob)\251play(Ann,C(board))\251play(Ann,M(4, 4))\251refuse(Ann,No.)");
    EXPECT_EQ(c.client.GameLinkState(), kLinkIdle);
    ExpectPlayable(c);
}

TEST(HostileServer, SendsRandomMessagesOfTheRightShape) {
    const char* const heads[] = {"P(", "S(", "J(", "T(", "R(", "M(", "C(", "X(", "Q(", "("};
    const char* const words[] = {"board", "play", "swap", "0",  "1",  "2", "3",
                                 "8",     "14",   "26",   "-4", "99", ""};
    std::mt19937 random(41);
    for (int game = 0; game < 200; ++game) {
        TestClient c;
        c.StartGame();
        for (int i = 0; i < 100; ++i) {
            std::string message = heads[random() % std::size(heads)];
            for (std::size_t field = random() % 12; field > 0; --field)
                message += std::string(words[random() % std::size(words)]) + ',';
            c.Receive(FromBob(message + words[random() % std::size(words)] + ")"));
            ASSERT_EQ(CheckGame(c.game), "") << message;
        }
        c.Receive("\251end(Ann,Bob)");
        ASSERT_NE(c.game.GameState, kGetBoard);
    }
}

} // namespace
} // namespace tarveth::test
